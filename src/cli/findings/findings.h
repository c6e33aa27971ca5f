// What the commands find in packages and headers: every code, with its severity and its meaning.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace morvane::cli {

enum class severity { error, warning, note };

/// "error", "warning" or "note".
std::string_view name_of(severity level);

/// A row of the table below. The code is what scripts look for: it never changes.
struct finding_kind {
  std::string_view code;
  severity level;
  std::string_view meaning;
};

/// Every kind of finding; docs/findings.md has an entry for each.
inline constexpr std::array finding_kinds{
    finding_kind{"header-cut", severity::error, "The package is shorter than its header."},
    finding_kind{"dvi-table-cut", severity::error, "The package ends inside its DVI table."},
    finding_kind{"block-size-disagrees", severity::error,
                 "dvi_pkg_size is not the sum of the ports and the image."},
    finding_kind{"ports-cut", severity::error, "The package ends inside the ports of a DVI."},
    finding_kind{"image-cut", severity::error, "The package ends inside the image of a DVI."},
    finding_kind{"vproc-table-cut", severity::error, "The package ends inside its vproc table."},
    finding_kind{"vproc-size-disagrees", severity::error,
                 "vproc_records_size is not the sum of the variables and the SMB blocks."},
    finding_kind{"variables-cut", severity::error,
                 "The package ends inside the variables of a DVI."},
    finding_kind{"smbs-cut", severity::error, "The package ends inside the SMB blocks of a DVI."},
    finding_kind{"bytes-left-over", severity::error, "The package goes on after its last record."},
    finding_kind{"no-dvis", severity::error, "The package has no DVI, so nothing was checked."},
    finding_kind{"vproc-missing", severity::error,
                 "The package has no vproc records, and they are required."},
    finding_kind{"vproc-present", severity::error,
                 "The package has vproc records, and they are forbidden."},
    finding_kind{"text-without-nul", severity::error, "A text fills its field without a NUL."},
    finding_kind{"bytes-after-nul", severity::error,
                 "A text field holds a byte other than 0 after its NUL."},
    finding_kind{"empty-name", severity::error, "A DAG, port, variable or SMB name is empty."},
    finding_kind{"unsafe-dag-name", severity::error, "A DAG name cannot be used as a file name."},
    finding_kind{"reserved-not-zero", severity::error, "A reserved byte is not 0."},
    finding_kind{"unknown-flags", severity::error, "Bit 6 or 7 of the port flags is set."},
    finding_kind{"wrong-vproc-id", severity::error,
                 "vproc_id is not the low byte of the DVI's position."},
    finding_kind{"no-images", severity::error, "The folder has no image that can be packed."},
    finding_kind{"unpaired-image", severity::error, "An image has no header."},
    finding_kind{"bad-index", severity::error,
                 "The name of an image has no file index, so it is left out."},
    finding_kind{"disordered-indices", severity::error,
                 "The file indices do not fit the number of images."},
    finding_kind{"unreadable-file", severity::error, "A file cannot be read."},
    finding_kind{"file-name-too-long", severity::error,
                 "The name of an image is too long, so it is left out."},
    finding_kind{"name-too-long", severity::error,
                 "A name does not fit into its field, so nothing can be packed."},
    finding_kind{"no-dag-name", severity::error, "A header names no DAG."},
    finding_kind{"image-missing", severity::error, "An image is a link that leads nowhere."},
    finding_kind{"image-too-short", severity::error,
                 "An image has fewer bytes than its header says."},
    finding_kind{"negative-image-size", severity::error,
                 "The size of an image does not fit into 31 bits."},
    finding_kind{"miscounted-port", severity::error, "A port is packed, but not counted."},
    finding_kind{"miscounted-vproc", severity::error, "An SMB block is packed, but not counted."},
    finding_kind{"duplicate-dag-name", severity::error, "Two headers name the same DAG."},
    finding_kind{"repeated-dag-name", severity::warning, "Two DVIs have the same DAG name."},
    finding_kind{"control-character", severity::warning,
                 "A port, layer, variable or SMB name holds a control character."},
    finding_kind{"dvi-without-ports", severity::warning, "A DVI has no port."},
    finding_kind{"dvi-without-image", severity::warning, "A DVI has no image."},
    finding_kind{"dagbin-outside-image", severity::warning,
                 "The address of a DAG binary lies outside its image."},
    finding_kind{"port-mismatch", severity::warning,
                 "An input differs from the output of the same name of an earlier DVI."},
    finding_kind{"not-decimal", severity::warning, "A number is not decimal."},
    finding_kind{"trailing-text", severity::warning,
                 "A number is followed by other characters, which are not read."},
    finding_kind{"out-of-range", severity::warning, "A number does not fit into its field."},
    finding_kind{"quoted-number", severity::warning, "A number is in quotes."},
    finding_kind{"size-overflow", severity::warning, "A size does not fit into 32 bits."},
    finding_kind{"no-value", severity::warning, "A macro has no value."},
    finding_kind{"cut-name", severity::warning,
                 "A value goes on after a separator, where it is cut."},
    finding_kind{"escape-sequence", severity::warning, "A text holds a backslash."},
    finding_kind{"macro-as-value", severity::warning, "The value of a macro is another macro."},
    finding_kind{"longer-macro", severity::warning,
                 "A macro with a longer name is read as a shorter one."},
    finding_kind{"wrong-name", severity::warning,
                 "A macro has a name that is nearly one that is read."},
    finding_kind{"two-macros-on-a-line", severity::warning,
                 "A line holds more than one macro or port."},
    finding_kind{"defined-twice", severity::warning,
                 "A macro is defined more than once, with different values."},
    finding_kind{
        "defined-elsewhere", severity::warning,
        "A macro is in the block of one port, but belongs to another of the same name too."},
    finding_kind{"overwritten", severity::warning, "A later line changes the value of a macro."},
    finding_kind{"undefined-macro", severity::warning, "A macro is undefined, which is not read."},
    finding_kind{"outside-any-block", severity::warning,
                 "A macro of a known name is in no block, so it is not read."},
    finding_kind{"missing-block", severity::warning,
                 "A port has macros, but no line introduces it."},
    finding_kind{"name-before-dag-name", severity::warning,
                 "A macro of the DAG comes before the line that names the DAG, so it is not read."},
    finding_kind{"in-comment", severity::warning, "A comment is read as a macro."},
    finding_kind{"conditional", severity::warning,
                 "A line is read although a condition leaves it out, or may leave it out."},
    finding_kind{"continued-line", severity::warning,
                 "A line ends in a backslash, and the next is not read as a part of it."},
    finding_kind{"not-a-define", severity::warning, "A line that defines no macro is read as one."},
    finding_kind{"keyword-in-a-word", severity::warning,
                 "A keyword inside a longer word introduces a block."},
    finding_kind{"carriage-return", severity::warning, "A carriage return becomes part of a name."},
    finding_kind{"nul-byte", severity::warning, "A line holds a byte that is 0."},
    finding_kind{"line-too-long", severity::warning, "A line is too long, so it is ignored."},
    finding_kind{"repeated-index", severity::warning,
                 "Two images have the same file index, so their order is not defined."},
    finding_kind{"index-gap", severity::warning, "A file index is missing."},
    finding_kind{"image-too-long", severity::warning,
                 "An image has more bytes than its header says."},
    finding_kind{"no-image-size", severity::warning,
                 "A header does not say how large its image is."},
    finding_kind{"images-overlap", severity::note,
                 "The images of two DVIs share addresses of the memory plan."},
    finding_kind{"ports-overlap", severity::note, "Two ports of a DVI share bytes."},
    finding_kind{"unknown-macro", severity::note, "A macro of the DAG is not read."},
    finding_kind{"default-used", severity::note, "A field has no macro and keeps its default."},
    finding_kind{"unused-file", severity::note, "A file of the folder is not read."},
    finding_kind{"no-ports", severity::note, "A header introduces no port."},
    finding_kind{"no-trailing-newline", severity::note,
                 "The last line of a header does not end in a newline."},
};

/// The kind with a code. A code that the table does not have fails to compile.
consteval const finding_kind* kind_of(std::string_view code) {
  for (const finding_kind& kind : finding_kinds) {
    if (kind.code == code) {
      return &kind;
    }
  }
  throw "no such code";  // what throws is no constant, so this does not compile
}

/// Where a finding is: a line and column of a text file, or an offset in a package.
struct finding_place {
  std::uint64_t offset = 0;
  std::uint32_t line = 0;  // from 1; 0 for a place that is an offset
  std::uint32_t column = 0;
};

/// The place of what concerns a whole file or folder.
inline constexpr finding_place whole_file{.line = 1, .column = 1};

struct finding {
  const finding_kind* kind;
  std::string_view file;
  finding_place place;
  std::string text;
  std::optional<severity> level{};  // that of the kind if there is none
};

/// The severity of a finding.
inline severity level_of(const finding& found) {
  return found.level.value_or(found.kind->level);
}

/// Takes the findings one after the other, as they are found.
using finding_sink = std::function<void(const finding&)>;

/// Makes a finding at an offset of a package and hands it to the sink.
void report(const finding_sink& sink, const finding_kind* kind, std::size_t offset,
            std::string text);

}  // namespace morvane::cli

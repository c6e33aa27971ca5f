// What the commands find in packages and headers: every code, with its severity and its meaning.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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
    finding_kind{"other-version", severity::error, "The package has another version."},
    finding_kind{"dvi-without-image", severity::error, "A DVI has no image."},
    finding_kind{"no-images", severity::error, "The folder has no image that can be packed."},
    finding_kind{"unpaired-image", severity::error, "An image has no header."},
    finding_kind{"mixed-up-files", severity::error,
                 "A header lies beside the image of another DVI."},
    finding_kind{"bad-index", severity::error,
                 "The name of an image has no file index, so it is left out."},
    finding_kind{"disordered-indices", severity::error,
                 "The file indices do not fit the number of images."},
    finding_kind{"repeated-index", severity::error,
                 "Images have the same file index, so their order depends on the machine."},
    finding_kind{"unreadable-file", severity::error, "A file cannot be read."},
    finding_kind{"file-name-too-long", severity::error,
                 "The name of an image is too long, so it is left out."},
    finding_kind{"name-too-long", severity::error,
                 "A name does not fit into its field, so nothing can be packed."},
    finding_kind{"no-dag-name", severity::error, "A header names no DAG."},
    finding_kind{"image-missing", severity::error, "An image is a link that leads nowhere."},
    finding_kind{"image-too-short", severity::error,
                 "An image has fewer bytes than its header says."},
    finding_kind{"image-too-long", severity::error,
                 "An image has more bytes than its header says."},
    finding_kind{"no-image-size", severity::error, "A header does not say how large its image is."},
    finding_kind{"empty-image", severity::error, "An image has no bytes."},
    finding_kind{"negative-image-size", severity::error,
                 "The size of an image does not fit into 31 bits."},
    finding_kind{"miscounted-port", severity::error, "A port is packed, but not counted."},
    finding_kind{"miscounted-vproc", severity::error, "An SMB block is packed, but not counted."},
    finding_kind{"duplicate-dag-name", severity::error, "Two headers name the same DAG."},
    finding_kind{"not-text", severity::error, "A header is no plain text."},
    finding_kind{"conflict-marker", severity::error, "A merge left the line of a conflict."},
    finding_kind{"second-dag", severity::error, "A header names another DAG."},
    finding_kind{"unbalanced-condition", severity::error,
                 "A condition has no end, or an end has no condition."},
    finding_kind{"block-ends", severity::error,
                 "A line inside a block ends it, so the macros behind it are not read."},
    finding_kind{"not-decimal", severity::error, "A number is not decimal."},
    finding_kind{"trailing-text", severity::error,
                 "A number is followed by other characters, which are not read."},
    finding_kind{"out-of-range", severity::error, "A number does not fit into its field."},
    finding_kind{"no-value", severity::error, "A macro has no value."},
    finding_kind{"escape-sequence", severity::error, "A text holds a backslash."},
    finding_kind{"macro-as-value", severity::error, "The value of a macro is another macro."},
    finding_kind{"longer-macro", severity::error,
                 "A macro with a longer name is read as a shorter one."},
    finding_kind{"wrong-name", severity::error,
                 "A macro has a name that is nearly one that is read."},
    finding_kind{"two-macros-on-a-line", severity::error,
                 "A line holds more than one macro or port."},
    finding_kind{
        "defined-elsewhere", severity::error,
        "A macro is in the block of one port, but belongs to another of the same name too."},
    finding_kind{"undefined-macro", severity::error, "A macro is undefined, which is not read."},
    finding_kind{"outside-any-block", severity::error,
                 "A macro of a known name is in no block, so it is not read."},
    finding_kind{"missing-block", severity::error, "A port has macros, but no line introduces it."},
    finding_kind{"name-before-dag-name", severity::error,
                 "A macro of the DAG comes before the line that names the DAG, so it is not read."},
    finding_kind{"in-comment", severity::error, "A comment is read as a macro."},
    finding_kind{"continued-line", severity::error,
                 "A line ends in a backslash, and the next is not read as a part of it."},
    finding_kind{"not-a-define", severity::error, "A line that defines no macro is read as one."},
    finding_kind{"keyword-in-a-word", severity::error,
                 "A keyword inside a longer word introduces a block."},
    finding_kind{"nul-byte", severity::error, "A line holds a byte that is 0."},
    finding_kind{"line-too-long", severity::error, "A line is too long, so it is ignored."},
    finding_kind{"repeated-dag-name", severity::warning, "Two DVIs have the same DAG name."},
    finding_kind{"control-character", severity::warning,
                 "A port, layer, variable or SMB name holds a control character."},
    finding_kind{"dvi-without-ports", severity::warning, "A DVI has no port."},
    finding_kind{"dagbin-outside-image", severity::warning,
                 "The address of a DAG binary lies outside its image."},
    finding_kind{"port-mismatch", severity::warning,
                 "An input differs from the port of the same name that has its data."},
    finding_kind{"renamed-port", severity::warning,
                 "An input has the bytes of an earlier output of another name."},
    finding_kind{"input-for-output", severity::warning,
                 "An input is probably an output, as a later DVI reads it and none writes it."},
    finding_kind{"producer-comes-later", severity::warning,
                 "An input gets its data from an output of a later DVI."},
    finding_kind{"repeated-output", severity::warning, "Two outputs have the same name."},
    finding_kind{"bytes-overwritten", severity::warning,
                 "A port takes bytes of another one that is still read."},
    finding_kind{"port-too-small", severity::warning,
                 "The size of a port is smaller than its dims need."},
    finding_kind{"images-overlap-partly", severity::warning,
                 "The images of two DVIs share some addresses of the memory plan."},
    finding_kind{"quoted-number", severity::warning, "A number is in quotes."},
    finding_kind{"size-overflow", severity::warning, "A size does not fit into 32 bits."},
    finding_kind{"cut-name", severity::warning,
                 "A value goes on after a separator, where it is cut."},
    finding_kind{"defined-twice", severity::warning,
                 "A macro is defined more than once, with different values."},
    finding_kind{"missing-macro", severity::warning,
                 "A port has no macro that the other ports have."},
    finding_kind{"repeated-block", severity::warning, "A block is introduced twice."},
    finding_kind{"conditional", severity::warning,
                 "A line is read although a condition leaves it out, or may leave it out."},
    finding_kind{"carriage-return", severity::warning, "A carriage return becomes part of a name."},
    finding_kind{"unpaired-header", severity::warning, "A header has no image."},
    finding_kind{"images-overlap", severity::note,
                 "The images of two DVIs share addresses of the memory plan."},
    finding_kind{"ports-overlap", severity::note, "Two ports of a DVI share bytes."},
    finding_kind{"unknown-macro", severity::note, "A macro of the DAG is not read."},
    finding_kind{"default-used", severity::note, "A field has no macro and keeps its default."},
    finding_kind{"unused-file", severity::note, "A file of the folder is not read."},
    finding_kind{"no-ports", severity::note, "A header introduces no port."},
    finding_kind{"no-trailing-newline", severity::note,
                 "The last line of a header does not end in a newline."},
    finding_kind{"stale-baseline-entry", severity::note, "An accepted finding no longer occurs."},
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

/// The kind with a code that a user wrote; null if there is none.
const finding_kind* find_kind(std::string_view code);

/// Where a finding is: a line and column of a text file, or an offset in a package.
struct finding_place {
  std::uint64_t offset = 0;
  std::uint32_t line = 0;  // from 1; 0 for a place that is an offset
  std::uint32_t column = 0;
};

/// The place of what concerns a whole file or folder.
inline constexpr finding_place whole_file{.line = 1, .column = 1};

struct finding {  // NOLINT(misc-no-recursion): a copy has copies of the rest
  const finding_kind* kind;
  std::string_view file;
  finding_place place;
  std::string text;
  std::optional<severity> level{};  // that of the kind if there is none
  std::vector<finding> rest{};      // what follows from the same cause, without a rest of its own
  std::string_view name{};          // of what is at the place, where a text file has one there
};

/// The severity of a finding.
inline severity level_of(const finding& found) {
  return found.level.value_or(found.kind->level);
}

/// The text, with the number of the findings that follow from it: "... (and 4 more)".
std::string text_with_rest(const finding& found);

/// Takes the findings one after the other, as they are found.
using finding_sink = std::function<void(const finding&)>;

/// Makes a finding at an offset of a package and hands it to the sink.
void report(const finding_sink& sink, const finding_kind* kind, std::size_t offset,
            std::string text);

}  // namespace morvane::cli

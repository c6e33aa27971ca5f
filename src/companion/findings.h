// What the commands find in packages and headers: every code, with its severity and its meaning.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace morvane::companion {

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
    finding_kind{"repeated-dag-name", severity::warning, "Two DVIs have the same DAG name."},
    finding_kind{"control-character", severity::warning,
                 "A port, layer, variable or SMB name holds a control character."},
    finding_kind{"dvi-without-ports", severity::warning, "A DVI has no port."},
    finding_kind{"dvi-without-image", severity::warning, "A DVI has no image."},
    finding_kind{"dagbin-outside-image", severity::warning,
                 "The address of a DAG binary lies outside its image."},
    finding_kind{"port-mismatch", severity::warning,
                 "An input differs from the output of the same name of an earlier DVI."},
    finding_kind{"images-overlap", severity::note,
                 "The images of two DVIs share addresses of the memory plan."},
    finding_kind{"ports-overlap", severity::note, "Two ports of a DVI share bytes."},
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
  std::uint32_t line = 0;  // from 1; 0 stands for a place that is an offset
  std::uint32_t column = 0;
};

struct finding {
  const finding_kind* kind;
  std::string_view file;
  finding_place place;
  std::string text;
};

/// Takes the findings one after the other, as they are found.
using finding_sink = std::function<void(const finding&)>;

}  // namespace morvane::companion

// The table of a DVI's ports.
#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>

#include "companion/report/package_changes.h"
#include "companion/report/page_content.h"
#include "companion/report/page_output.h"

namespace morvane::companion {

/// Counts how often each name was met.
struct occurrence_counter {
  std::unordered_map<std::string_view, std::uint32_t> counts{};

  /// The occurrence of a name that is met now; not counted when no record has a mark.
  std::uint32_t next(const record_marks& marks, std::string_view name) {
    return marks.empty() ? 0 : ++counts[name];
  }
};

/// Writes the inputs and the outputs of a DVI, nothing when it has none.
void write_port_table(const page_content& content, const morvane_view_dvi& dvi,
                      const record_marks& marks, page_output& out);

}  // namespace morvane::companion

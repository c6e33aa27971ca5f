// The lines and columns of places in a header.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "cli/findings/findings.h"

namespace morvane::cli {

/// Counts lines, as far as it is asked.
class line_index {
 public:
  explicit line_index(std::string_view header) : header_(header) {}

  /// The number of the line of a place, from 1. The end of the header is a place too.
  std::uint32_t line(std::size_t place);

  /// The line and the column, in bytes from 1.
  finding_place position(std::size_t place);

 private:
  std::string_view header_;
  std::vector<std::uint32_t> before_{};  // the lines that end before each step
};

}  // namespace morvane::cli

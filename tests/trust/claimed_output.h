// Computes from a package how much its inspection will print and write, and whether a count aborts
// it.
#pragma once

#include <cstdint>
#include <string_view>

namespace morvane::test {

struct claim {
  std::uint64_t bytes = 0;  // about, of report, headers and images up to a refused count
  bool refused = false;     // a count is negative, or asks for more than 4 GiB and the file's size
};

/// Follows the counts of a package as the inspection does, without reading the counted records.
claim claimed_output(std::string_view package, bool vproc);

}  // namespace morvane::test

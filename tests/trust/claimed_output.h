// What an inspection of a package is in for: how much it will print and write, and whether a count
// stops it.
#pragma once

#include <cstdint>
#include <string_view>

namespace morvane::test {

struct claim {
  std::uint64_t bytes = 0;  // of report, headers and images, about, up to the refused count
  bool refused = false;     // a count is negative, or asks for more than 4 GiB and the file's size
};

/// Walks the counts of a package as the inspection does, without reading what they count.
claim claimed_output(std::string_view package, bool vproc);

}  // namespace morvane::test

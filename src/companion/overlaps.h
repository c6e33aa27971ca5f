// Ranges of bytes that overlap.
#pragma once

#include <cstdint>
#include <vector>

namespace morvane::companion {

/// The bytes from begin to end, the end excluded, that somebody uses.
struct used_range {
  std::uint32_t owner = 0;
  std::uint64_t begin = 0;
  std::uint64_t end = 0;
};

/// Two owners that share bytes.
struct overlap {
  used_range one;
  used_range other;  // owner of a greater number
};

/// Names at least one partner for every owner whose range overlaps another; fewer overlaps than
/// ranges. Empty ranges overlap nothing. In the order of the greater owner.
std::vector<overlap> find_overlaps(std::vector<used_range> ranges);

}  // namespace morvane::companion

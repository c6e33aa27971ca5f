#include "companion/overlaps.h"

#include <algorithm>
#include <tuple>

namespace morvane::companion {

std::vector<overlap> find_overlaps(std::vector<used_range> ranges) {
  std::erase_if(ranges, [](const used_range& range) { return range.begin >= range.end; });
  std::ranges::sort(ranges, {},
                    [](const used_range& range) { return std::tuple(range.begin, range.owner); });
  std::vector<overlap> found;
  used_range furthest{};  // the range that ends last among those that were met
  for (const used_range& range : ranges) {
    if (range.begin < furthest.end) {
      const bool in_order = furthest.owner < range.owner;
      found.push_back(in_order ? overlap{furthest, range} : overlap{range, furthest});
    }
    if (range.end > furthest.end) {
      furthest = range;
    }
  }
  std::ranges::sort(
      found, {}, [](const overlap& both) { return std::tuple(both.other.owner, both.one.owner); });
  return found;
}

}  // namespace morvane::companion

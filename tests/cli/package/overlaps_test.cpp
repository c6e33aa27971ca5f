// Which ranges are found to overlap.
#include "cli/package/overlaps.h"

#include <gtest/gtest.h>

#include <utility>

namespace morvane::test {
namespace {

using cli::find_overlaps;
using pairs = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

pairs overlapping(std::vector<cli::used_range> ranges) {
  pairs found;
  for (const auto& [one, other] : find_overlaps(std::move(ranges))) {
    found.emplace_back(one.owner, other.owner);
  }
  return found;
}

TEST(Overlaps, AreNoneBetweenRangesThatOnlyTouch) {
  EXPECT_EQ(overlapping({}), pairs{});
  EXPECT_EQ(overlapping({{0, 0, 4}, {1, 4, 8}, {2, 9, 10}}), pairs{});
}

TEST(Overlaps, AreNoneWithEmptyRanges) {
  EXPECT_EQ(overlapping({{0, 0, 10}, {1, 5, 5}}), pairs{});
}

TEST(Overlaps, NameTheOwnersInOrder) {
  EXPECT_EQ(overlapping({{0, 5, 10}, {1, 0, 6}}), (pairs{{0, 1}}));
  EXPECT_EQ(overlapping({{0, 0, 6}, {1, 5, 10}}), (pairs{{0, 1}}));
  EXPECT_EQ(overlapping({{0, 0, 6}, {1, 0, 6}}), (pairs{{0, 1}}));
}

TEST(Overlaps, NameAPartnerForEveryRangeInsideAGreaterOne) {
  EXPECT_EQ(overlapping({{0, 0, 100}, {1, 1, 2}, {2, 50, 51}, {3, 99, 200}, {4, 150, 151}}),
            (pairs{{0, 1}, {0, 2}, {0, 3}, {3, 4}}));
}

TEST(Overlaps, AreFewerThanTheRanges) {
  std::vector<cli::used_range> ranges;
  for (std::uint32_t i = 0; i < 1000; ++i) {
    ranges.push_back({i, 0, 10});
  }
  EXPECT_EQ(find_overlaps(ranges).size(), 999U);
}

}  // namespace
}  // namespace morvane::test

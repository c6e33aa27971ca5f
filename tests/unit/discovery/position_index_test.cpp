#include "discovery/position_index.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

using positions = std::vector<std::uint32_t>;

positions candidates_of(const position_index& index, std::uint64_t hash) {
  positions found;
  index.candidates(hash, [&](std::uint32_t position) { found.push_back(position); });
  return found;
}

TEST(PositionIndex, GivesTheEntriesOfAHashInTheirOrder) {
  position_index index(10);
  index.add(0x80000000, 3);
  index.add(0x20000000, 4);
  index.add(0x80000000, 0);
  EXPECT_EQ(candidates_of(index, 0x80000000), (positions{3, 0}));
  EXPECT_EQ(candidates_of(index, 0x20000000), positions{4});
  EXPECT_EQ(candidates_of(index, 0xE0000000), positions{});
}

TEST(PositionIndex, TakesAsManyEntriesAsItIsMadeFor) {
  for (const std::uint32_t most : {0U, 1U, 2U, 1000U}) {
    position_index index(most);
    EXPECT_EQ(index.most(), most);
    // All at the last place: those behind the first go on from the front.
    for (std::uint32_t i = 0; i < most; ++i) {
      index.add(0xFFFFFFFF, i);
    }
    EXPECT_EQ(candidates_of(index, 0xFFFFFFFF).size(), most);
  }
}

TEST(PositionIndex, DoesNotLookAtTheUpperHalfOfAHash) {
  position_index index(4);
  index.add(0x0000000140000000, 1);
  EXPECT_EQ(candidates_of(index, 0x40000000), positions{1});
}

}  // namespace
}  // namespace morvane

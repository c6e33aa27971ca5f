// The axis of addresses in the pictures of a page.
#include <gtest/gtest.h>

#include "cli/report/model/folded_axis.h"

namespace morvane::cli {
namespace {

struct expected_stretch {
  std::uint64_t begin;
  std::uint64_t end;
  std::uint64_t place;
  std::uint64_t width;
  bool is_gap;
};

void expect_stretches(const folded_axis& axis, const std::vector<expected_stretch>& expected) {
  ASSERT_EQ(axis.stretches.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(axis.stretches[i].begin, expected[i].begin) << i;
    EXPECT_EQ(axis.stretches[i].end, expected[i].end) << i;
    EXPECT_EQ(axis.stretches[i].place, expected[i].place) << i;
    EXPECT_EQ(axis.stretches[i].width, expected[i].width) << i;
    EXPECT_EQ(axis.stretches[i].is_gap, expected[i].is_gap) << i;
  }
}

TEST(FoldedAxis, HasNoStretchWhereNothingIsUsed) {
  expect_stretches(fold_axis({}), {});
  expect_stretches(fold_axis({{.owner = 0, .begin = 7, .end = 7}}), {});
}

TEST(FoldedAxis, FoldsALongGap) {
  const folded_axis axis =
      fold_axis({{.begin = 0x90000000, .end = 0x900001E0}, {.begin = 0x1000, .end = 0x11E0}});
  expect_stretches(axis, {{0x1000, 0x11E0, 0, 4800, false},
                          {0x11E0, 0x90000000, 4800, 400, true},
                          {0x90000000, 0x900001E0, 5200, 4800, false}});
}

TEST(FoldedAxis, KeepsAShortGapToScale) {
  const folded_axis axis = fold_axis({{.begin = 0, .end = 400}, {.begin = 500, .end = 1000}});
  expect_stretches(axis, {{0, 1000, 0, 10000, false}});
}

TEST(FoldedAxis, JoinsRangesThatOverlapOrTouch) {
  const folded_axis axis = fold_axis({{.begin = 30, .end = 40},
                                      {.begin = 10, .end = 25},
                                      {.begin = 20, .end = 30},
                                      {.begin = 12, .end = 14}});
  expect_stretches(axis, {{10, 40, 0, 10000, false}});
}

TEST(FoldedAxis, TellsWhereAnAddressIs) {
  const folded_axis axis = fold_axis({{.begin = 100, .end = 200}, {.begin = 10000, .end = 10100}});
  EXPECT_EQ(place_of(axis, 0), 0U);
  EXPECT_EQ(place_of(axis, 100), 0U);
  EXPECT_EQ(place_of(axis, 150), 2400U);
  EXPECT_EQ(place_of(axis, 5100), 5000U);
  EXPECT_EQ(place_of(axis, 10100), 10000U);
  EXPECT_EQ(place_of(axis, 99999), 10000U);
}

TEST(FoldedAxis, MakesASmallBarWideEnoughToBeSeen) {
  const folded_axis axis = fold_axis({{.begin = 0, .end = 1000000}});
  EXPECT_EQ(bar_of(axis, {.begin = 500000, .end = 500001}).place, 5000U);
  EXPECT_EQ(bar_of(axis, {.begin = 500000, .end = 500001}).width, 40U);
  EXPECT_EQ(bar_of(axis, {.begin = 999999, .end = 1000000}).place, 9960U);
  EXPECT_EQ(bar_of(axis, {.begin = 250000, .end = 750000}).width, 5000U);
}

TEST(VisibleWidths, KeepSmallSizesVisibleAndTheRestToScale) {
  using widths = std::vector<std::uint64_t>;
  EXPECT_EQ(visible_widths({}), widths{});
  EXPECT_EQ(visible_widths({7}), widths{10000});
  EXPECT_EQ(visible_widths({1, 3000000, 1000000}), (widths{120, 7410, 2470}));
  EXPECT_EQ(visible_widths({0, 0}), (widths{120, 120}));
  const widths many = visible_widths(widths(200, 1));
  EXPECT_EQ(many.front(), 50U);
  EXPECT_EQ(many.size(), 200U);
}

}  // namespace
}  // namespace morvane::cli

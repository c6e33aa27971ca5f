#include "headers/line_scanner.h"

#include <gtest/gtest.h>

#include <array>

#include "unit/printed_text.h"

namespace morvane {
namespace {

TEST(SplitLine, ReportsALineThatIsTooLongAndKeepsTheSlots) {
  const std::string longest(1023, 'y');
  const std::string too_long(1024, 'y');
  std::string_view slot;
  EXPECT_EQ(test::printed_by([&] {
              EXPECT_EQ(split_line(longest, macro_delimiters, std::span(&slot, 1)), 0);
              EXPECT_EQ(split_line(too_long, macro_delimiters, std::span(&slot, 1)), -1);
            }),
            test::length_message("LINE_LEN", too_long));
  EXPECT_EQ(slot, longest);
}

TEST(SplitLine, FillsAsManySlotsAsThereAreTokens) {
  std::array<std::string_view, 3> slots{"", "", "kept"};
  EXPECT_EQ(split_line(" net_W\t16;", macro_delimiters, slots), 0);
  EXPECT_EQ(slots, (std::array<std::string_view, 3>{"net_W", "16", "kept"}));
}

}  // namespace
}  // namespace morvane

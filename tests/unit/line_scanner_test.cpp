#include "headers/line_scanner.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "printed_text.h"

namespace morvane {
namespace {

using test::length_message;
using test::printed_by;

using tokens = std::vector<std::string>;

/// Up to six tokens of a line.
tokens cut(std::string_view line, const delimiter_set& delimiters) {
  std::array<std::string_view, 6> slots;
  split_line(line, delimiters, slots);
  tokens found;
  for (const std::string_view slot : slots) {
    if (slot.data() != nullptr) {
      found.emplace_back(slot);
    }
  }
  return found;
}

/// The value of a key, or "none".
std::string value_of(std::string_view line, std::string_view key) {
  std::string_view value = "none";
  const std::size_t position = find_macro_value(line, key, value, macro_delimiters);
  EXPECT_EQ(position == no_value, value == "none");
  return std::string(value);
}

TEST(SplitLine, TreatsAnyRunOfDelimitersAsOne) {
  EXPECT_EQ(cut(" \ta//b,*;c:=\"d\"", macro_delimiters), (tokens{"a", "b", "c", "d"}));
}

TEST(SplitLine, KeepsTheCarriageReturnInAToken) {
  EXPECT_EQ(cut("a 5\r", macro_delimiters), (tokens{"a", "5\r"}));
}

TEST(SplitLine, KeepsTheSlashInALayerName) {
  EXPECT_EQ(cut(" \"a/b/c\" * d", layer_name_delimiters), (tokens{"a/b/c", "d"}));
  EXPECT_EQ(cut("a\tb,c;d:e=f", layer_name_delimiters), (tokens{"a", "b", "c", "d", "e", "f"}));
}

TEST(SplitLine, CutsAQuotedTextIntoItsWords) {
  EXPECT_EQ(cut("\"a b\"", macro_delimiters), (tokens{"a", "b"}));
}

TEST(SplitLine, SucceedsWithoutAnyToken) {
  std::string_view slot = "before";
  EXPECT_EQ(split_line(" /**/ ", macro_delimiters, std::span(&slot, 1)), 0);
  EXPECT_EQ(slot, "before");
}

TEST(SplitLine, EndsAtANul) {
  EXPECT_EQ(cut({"a b\0c d", 7}, macro_delimiters), (tokens{"a", "b"}));
  EXPECT_EQ(cut({" \0c", 3}, macro_delimiters), tokens{});
}

TEST(SplitLine, TakesHighBytesAsPartOfAToken) {
  EXPECT_EQ(cut("\xC3\xA9t\xC3\xA9 \xFF", macro_delimiters), (tokens{"\xC3\xA9t\xC3\xA9", "\xFF"}));
}

TEST(SplitLine, StopsWhenItsSlotsAreFilled) {
  std::array<std::string_view, 2> slots;
  EXPECT_EQ(split_line("a b c", macro_delimiters, slots), 0);
  EXPECT_EQ(slots[0], "a");
  EXPECT_EQ(slots[1], "b");
}

TEST(SplitLine, TakesALineOf1023Characters) {
  const std::string line(1023, 'y');
  EXPECT_EQ(printed_by([&] { EXPECT_EQ(cut(line, macro_delimiters), tokens{line}); }), "");
}

TEST(SplitLine, ReportsALineOf1024CharactersAndLeavesTheSlots) {
  const std::string line(1024, 'y');
  std::string_view slot = "before";
  EXPECT_EQ(
      printed_by([&] { EXPECT_EQ(split_line(line, macro_delimiters, std::span(&slot, 1)), -1); }),
      "error: please increase length limit of MACRO [LINE_LEN] for string \"" + line +
          "\" with length [1024]\n");
  EXPECT_EQ(slot, "before");
}

TEST(FindMacroValue, GivesThePositionOfTheKeyAndTheTokenAfterIt) {
  std::string_view value;
  EXPECT_EQ(find_macro_value("#define dag0_DAG_NAME dag0", "_DAG_NAME", value, macro_delimiters),
            12U);
  EXPECT_EQ(value, "dag0");
}

TEST(FindMacroValue, LeavesTheValueAloneWhenNothingFollowsTheKey) {
  std::string_view value = "before";
  EXPECT_EQ(find_macro_value("#define dag0_DAG_NAME", "_DAG_NAME", value, macro_delimiters),
            no_value);
  EXPECT_EQ(
      find_macro_value("#define dag0_DAG_NAME \"\" /* */", "_DAG_NAME", value, macro_delimiters),
      no_value);
  EXPECT_EQ(value, "before");
}

TEST(FindMacroValue, LeavesTheValueAloneWithoutTheKey) {
  std::string_view value = "before";
  EXPECT_EQ(find_macro_value("#define dag0_image_size 5", "_DAG_NAME", value, macro_delimiters),
            no_value);
  EXPECT_EQ(value, "before");
}

TEST(FindMacroValue, TakesTheFirstWordOfAQuotedText) {
  EXPECT_EQ(value_of("x = \" abc def \";", "x"), "abc");
  EXPECT_EQ(value_of("#define dag0_DAG_NAME \"dag0\"", "_DAG_NAME"), "dag0");
}

TEST(FindMacroValue, TakesTheWordsOfACommentAsTokens) {
  EXPECT_EQ(value_of("#define X_DAG_NAME dag0 /* net */", "_DAG_NAME"), "dag0");
  EXPECT_EQ(value_of("#define X_DAG_NAME /* net */", "_DAG_NAME"), "net");
}

TEST(FindMacroValue, TakesTheRestOfALongerWordAsTheValue) {
  EXPECT_EQ(value_of("#define A_DAG_NAMES q", "_DAG_NAME"), "S");
  EXPECT_EQ(value_of("#define dag0_HMB_input_0 q", "HMB_input"), "_0");
}

TEST(FindMacroValue, TellsLowerCaseFromUpperCase) {
  EXPECT_EQ(value_of("#define dag0_dag_name dag0", "_DAG_NAME"), "none");
}

TEST(FindMacroValue, LooksAtTheFirstOccurrenceOnly) {
  EXPECT_EQ(value_of("a_W b_W 5", "_W"), "b_W");
  EXPECT_EQ(value_of("/* _W", "_W"), "none");
}

TEST(FindMacroValue, FindsAKeyBehindANul) {
  EXPECT_EQ(value_of({"a\0_W 5", 6}, "_W"), "5");
  EXPECT_EQ(value_of({"a_W\0 5", 6}, "_W"), "none");
}

TEST(FindMacroValue, ReportsARestThatIsTooLong) {
  const std::string rest(1024, 'y');
  EXPECT_EQ(printed_by([&] { EXPECT_EQ(value_of("_W" + rest, "_W"), "none"); }),
            length_message("LINE_LEN", rest));
}

TEST(CheckLineNotBlank, TakesBlanksTabsAndCarriageReturnsForBlank) {
  EXPECT_EQ(check_line_not_blank(""), -1);
  EXPECT_EQ(check_line_not_blank(" \t \r"), -1);
  EXPECT_EQ(check_line_not_blank("\n"), -1);
  EXPECT_EQ(check_line_not_blank({"\0x", 2}), -1);
}

TEST(CheckLineNotBlank, TakesAnEmptyCommentForALine) {
  EXPECT_EQ(check_line_not_blank("/* */"), 0);
  EXPECT_EQ(value_of("/* */", "/"), "none");
}

TEST(CheckLineNotBlank, ReportsAnOverLongLineAndTakesItForBlank) {
  const std::string line(1024, 'y');
  EXPECT_EQ(printed_by([&] { EXPECT_EQ(check_line_not_blank(line), -1); }),
            length_message("LINE_LEN", line));
  EXPECT_EQ(check_line_not_blank(std::string(1023, 'y')), 0);
}

TEST(DecimalValue, TakesLeadingDigitsInBaseTen) {
  EXPECT_EQ(decimal_value("4096"), 4096);
  EXPECT_EQ(decimal_value("12abc"), 12);
  EXPECT_EQ(decimal_value("010"), 10);
  EXPECT_EQ(decimal_value("7\r"), 7);
}

TEST(DecimalValue, TakesASignAndLeadingSpace) {
  EXPECT_EQ(decimal_value("-1"), -1);
  EXPECT_EQ(decimal_value("+5"), 5);
  EXPECT_EQ(decimal_value("\r\v\f8"), 8);
}

TEST(DecimalValue, IsZeroForWhatIsNoNumber) {
  EXPECT_EQ(decimal_value("0x40"), 0);
  EXPECT_EQ(decimal_value("abc"), 0);
  EXPECT_EQ(decimal_value("(5)"), 0);
  EXPECT_EQ(decimal_value(""), 0);
}

TEST(DecimalValue, StopsAtTheGreatestNumbersOf64Bits) {
  EXPECT_EQ(decimal_value("99999999999999999999"), 9223372036854775807);
  EXPECT_EQ(decimal_value("-99999999999999999999"), -9223372036854775807 - 1);
}

}  // namespace
}  // namespace morvane

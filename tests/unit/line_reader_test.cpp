#include "headers/line_reader.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "headers/line_scanner.h"
#include "printed_text.h"

namespace morvane {
namespace {

using test::length_message;
using test::line_of_length;
using test::printed_by;

using lines_list = std::vector<std::string>;

lines_list lines_of(std::string_view text) {
  line_reader lines{text};
  lines_list found;
  std::string_view line;
  while (next_line(lines, line)) {
    found.emplace_back(line);
  }
  return found;
}

lines_list values_of(std::string_view text, std::string_view key) {
  line_reader lines{text};
  lines_list found;
  std::string_view value;
  while (next_value(lines, key, value)) {
    found.emplace_back(value);
  }
  return found;
}

TEST(NextLine, GivesEveryLineThatIsNotBlank) {
  EXPECT_EQ(lines_of("a\n\n \t\r\nb c\n"), (lines_list{"a", "b c"}));
}

TEST(NextLine, GivesALastLineWithoutLineBreak) {
  EXPECT_EQ(lines_of("a\nb"), (lines_list{"a", "b"}));
}

TEST(NextLine, GivesNothingOfAnEmptyText) {
  EXPECT_EQ(lines_of(""), lines_list{});
  EXPECT_EQ(lines_of("\n\n"), lines_list{});
}

TEST(NextLine, LeavesTheCarriageReturnOnTheLine) {
  EXPECT_EQ(lines_of("a\r\nb\r\n"), (lines_list{"a\r", "b\r"}));
}

TEST(NextLine, TakesALineThatBeginsWithANulForBlank) {
  EXPECT_EQ(lines_of({"\0a\nb\0c\n", 7}), (lines_list{std::string("b\0c", 3)}));
}

TEST(NextLine, GivesALineOf1023CharactersAndReportsLongerOnes) {
  const std::string longest(1023, 'a');
  const std::string too_long(1024, 'b');
  const std::string much_too_long(1200, 'c');
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(lines_of(longest + "\n" + too_long + "\nx\n" + much_too_long),
                        (lines_list{longest, "x"}));
            }),
            length_message("LINE_LEN", too_long) + length_message("LINE_LEN", much_too_long));
}

TEST(NextLine, ReadsAgainFromAnEarlierPlace) {
  const std::string too_long(1024, 'b');
  const std::string text = "a\n" + too_long + "\nc";
  line_reader lines{text};
  std::string_view line;
  next_line(lines, line);
  const std::size_t after_first = lines.next;
  const auto read_third = [&] {
    EXPECT_TRUE(next_line(lines, line));
    EXPECT_EQ(line, "c");
    EXPECT_FALSE(next_line(lines, line));
  };
  EXPECT_EQ(printed_by(read_third), length_message("LINE_LEN", too_long));
  lines.next = after_first;
  EXPECT_EQ(printed_by(read_third), length_message("LINE_LEN", too_long));
}

/// The lines that contain "x" or "y".
lines_list lines_with_x_or_y(std::string_view text) {
  line_reader lines{text};
  std::array keys{sought_key{.key = "x"}, sought_key{.key = "y"}};
  lines_list found;
  std::string_view line;
  while (next_line_with(lines, keys, line)) {
    found.emplace_back(line);
  }
  return found;
}

TEST(NextLineWith, GivesEveryLineThatHoldsOneOfTheKeys) {
  EXPECT_EQ(lines_with_x_or_y("a\nx 1\ny 2\nb\n\ny x\nx\nx y\nc\ny"),
            (lines_list{"x 1", "y 2", "y x", "x", "x y", "y"}));
}

TEST(NextLineWith, GivesTheLinesOfOneKeyWithoutTheOther) {
  EXPECT_EQ(lines_with_x_or_y("a\ny\nb\ny\n"), (lines_list{"y", "y"}));
  EXPECT_EQ(lines_with_x_or_y("x\nb\nx"), (lines_list{"x", "x"}));
  EXPECT_EQ(lines_with_x_or_y("a\nb\n"), lines_list{});
}

TEST(NextLineWith, ReportsEachOverLongLineOnceAndPassesOverIt) {
  const std::string with_x = line_of_length("x y", 1024);
  const std::string with_none(1200, 'n');
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(lines_with_x_or_y(with_x + "\ny\n" + with_none + "\nx\n" + with_x),
                        (lines_list{"y", "x"}));
            }),
            length_message("LINE_LEN", with_x) + length_message("LINE_LEN", with_none) +
                length_message("LINE_LEN", with_x));
}

TEST(NextValue, GivesTheValueOfEveryLineThatHasOne) {
  EXPECT_EQ(values_of("a\nkey 1\nb\n#define key_x 2\nkey\nkey 3", "key"),
            (lines_list{"1", "_x", "3"}));
}

TEST(NextValue, GivesNothingWithoutTheKey) {
  EXPECT_EQ(values_of("a\nb\n", "key"), lines_list{});
}

TEST(NextValue, StandsAfterTheLineOfTheValue) {
  const std::string text = "a\n\nkey 1 key 2\nb\n";
  line_reader lines{text};
  std::string_view value;
  EXPECT_TRUE(next_value(lines, "key", value));
  EXPECT_EQ(text.substr(lines.next), "b\n");
}

TEST(NextValue, PassesOverABlankLineThatHoldsTheKey) {
  EXPECT_EQ(values_of({"\0key 1\nkey 2\n", 13}, "key"), lines_list{"2"});
}

TEST(NextValue, ReportsTheOverLongLinesBeforeTheValueOnly) {
  const std::string first(1024, 'a');
  const std::string second(5000, 'b');
  const std::string third(1024, 'c');
  const std::string text = first + "\n" + second + "\nx\nkey 1\n" + third + "\n";
  line_reader lines{text};
  std::string_view value;
  EXPECT_EQ(printed_by([&] { EXPECT_TRUE(next_value(lines, "key", value)); }),
            length_message("LINE_LEN", first) + length_message("LINE_LEN", second));
  EXPECT_EQ(printed_by([&] { EXPECT_FALSE(next_value(lines, "key", value)); }),
            length_message("LINE_LEN", third));
}

TEST(NextValue, PassesOverAnOverLongLineThatHoldsTheKey) {
  const std::string longest = line_of_length("key 1", 1023);
  const std::string too_long = line_of_length("key 2", 1024);
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(values_of(too_long + "\n" + longest + "\n" + too_long, "key"),
                        lines_list{"1"});
            }),
            length_message("LINE_LEN", too_long) + length_message("LINE_LEN", too_long));
}

/// The same, found line by line.
lines_list values_line_by_line(std::string_view text, std::string_view key) {
  line_reader lines{text};
  lines_list found;
  std::string_view line;
  std::string_view value;
  while (next_line(lines, line)) {
    if (find_macro_value(line, key, value, macro_delimiters) != no_value) {
      found.emplace_back(value);
    }
  }
  return found;
}

TEST(NextValue, ReportsWhatALookAtEveryLineReports) {
  // Lines around the limit are before, between and after two lines with the key. The lines with the
  // key are short, of the greatest length, or longer.
  const std::size_t fillers[] = {0, 1, 1022, 1023, 1024, 2047, 3100};
  const std::size_t key_lines[] = {6, 1023, 1024};
  for (const std::size_t before : fillers) {
    for (const std::size_t between : fillers) {
      for (const std::size_t key_line : key_lines) {
        const std::string text =
            std::string(before, 'a') + "\n" + line_of_length("key 1", key_line) + "\n" +
            std::string(between, 'b') + "\nc\n" + line_of_length("key 2", key_line) + "\n" +
            std::string(before, 'd');
        lines_list values;
        const std::string printed = printed_by([&] { values = values_of(text, "key"); });
        lines_list expected_values;
        const std::string expected =
            printed_by([&] { expected_values = values_line_by_line(text, "key"); });
        EXPECT_EQ(values, expected_values) << before << " " << between << " " << key_line;
        EXPECT_EQ(printed, expected) << before << " " << between << " " << key_line;
      }
    }
  }
}

}  // namespace
}  // namespace morvane

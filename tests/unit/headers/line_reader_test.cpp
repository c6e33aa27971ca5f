#include "headers/line_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "headers/line_scanner.h"
#include "unit/printed_text.h"

namespace morvane {
namespace {

using test::line_of_length;
using test::printed_by;

using lines_list = std::vector<std::string>;

lines_list values_of(std::string_view text, std::string_view key) {
  line_reader lines{text};
  lines_list found;
  std::string_view value;
  while (next_value(lines, key, value)) {
    found.emplace_back(value);
  }
  return found;
}

/// The values of a key, found line by line.
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

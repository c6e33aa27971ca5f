// Walks a header's text line by line. A line ends at its newline, which is not part of it; the last
// line may end at the end of the text.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace morvane {

/// A place in a header's text. Setting next back to an earlier value reads the lines from there
/// again, messages about over-long ones included.
struct line_reader {
  std::string_view text;
  std::size_t next = 0;  // where the next line begins
};

/// Reads the next line that is not blank. Returns whether there is one. Reports the limit LINE_LEN
/// for every over-long line on the way; such a line counts as blank.
bool next_line(line_reader& lines, std::string_view& line);

/// A key, and where it was found last: searched for once, it waits until the reader has come there.
struct sought_key {
  std::string_view key;
  std::size_t place = 0;
  bool found = false;
};

/// Reads on to the next line that is not blank and holds one of the keys, which must have been
/// sought from here or before. Returns whether there is one. Reports over-long lines as next_line
/// does.
bool next_line_with(line_reader& lines, std::span<sought_key> keys, std::string_view& line);

/// Reads on to the next line on which the key has a value, as find_macro_value sees it with the
/// macro delimiters. Returns whether there is one; the reader then stands after its line. Reports
/// over-long lines as next_line does.
bool next_value(line_reader& lines, std::string_view key, std::string_view& value);

}  // namespace morvane

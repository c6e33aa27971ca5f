// Reads a header's text line by line. A line ends before its newline. The last line may end at the
// end of the text.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace morvane {

/// A position in a header's text. If next is set back, the lines from there are read again, and
/// over-long ones are reported again.
struct line_reader {
  std::string_view text;
  std::size_t next = 0;  // the position of the next line
};

/// Reads the next line that is not blank. Returns false at the end of the text. Reports the limit
/// LINE_LEN for every over-long line on the way; such a line counts as blank.
bool next_line(line_reader& lines, std::string_view& line);

/// A key and the next place where it was found. It is searched for again only after the reader has
/// passed that place.
struct sought_key {
  std::string_view key;
  std::size_t place = 0;
  bool found = false;
};

/// Reads the next line that is not blank and contains one of the keys. Returns false at the end of
/// the text. Reports over-long lines as next_line does. The keys must be new, or from an earlier
/// call at this position or before it.
bool next_line_with(line_reader& lines, std::span<sought_key> keys, std::string_view& line);

/// Reads the next line on which find_macro_value finds a value of the key with the macro
/// delimiters. Returns false at the end of the text. Reports over-long lines as next_line does.
bool next_value(line_reader& lines, std::string_view key, std::string_view& value);

}  // namespace morvane

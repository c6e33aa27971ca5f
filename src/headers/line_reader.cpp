#include "headers/line_reader.h"

#include <algorithm>

#include "format/length_limits.h"
#include "headers/line_scanner.h"

namespace morvane {

namespace {

bool cut_line(line_reader& lines, std::string_view& line) {
  if (lines.next == lines.text.size()) {
    return false;
  }
  const std::size_t end = std::min(lines.text.find('\n', lines.next), lines.text.size());
  line = lines.text.substr(lines.next, end - lines.next);
  lines.next = std::min(end + 1, lines.text.size());
  return true;
}

/// Moves to the line that contains a position, or to the end of the text for npos, and reports the
/// over-long lines on the way. It does not look at every line: if a newline follows within the
/// length limit, no over-long line begins before it.
void skip_lines_before(line_reader& lines, std::size_t position) {
  const std::string_view before = lines.text.substr(0, position);
  while (before.size() - lines.next > line_limit.longest) {
    const std::string_view window = before.substr(lines.next, line_limit.longest + 1);
    const std::size_t newline = window.rfind('\n');
    if (newline != std::string_view::npos) {
      lines.next += newline + 1;
      continue;
    }
    if (position < lines.text.find('\n', lines.next)) {
      return;  // the over-long line contains the position
    }
    std::string_view line;
    cut_line(lines, line);
    check_line_not_blank(line);
  }
  const std::size_t newline = before.substr(lines.next).rfind('\n');
  if (position == std::string_view::npos) {
    lines.next = before.size();
  } else if (newline != std::string_view::npos) {
    lines.next += newline + 1;
  }
}

}  // namespace

bool next_line(line_reader& lines, std::string_view& line) {
  while (cut_line(lines, line)) {
    if (check_line_not_blank(line) == 0) {
      return true;
    }
  }
  return false;
}

bool next_line_with(line_reader& lines, std::span<sought_key> keys, std::string_view& line) {
  for (;;) {
    std::size_t nearest = std::string_view::npos;
    for (sought_key& key : keys) {
      if (!key.found || key.place < lines.next) {
        key.place = lines.text.find(key.key, lines.next);
        key.found = true;
      }
      nearest = std::min(nearest, key.place);
    }
    skip_lines_before(lines, nearest);
    if (!cut_line(lines, line)) {
      return false;
    }
    if (check_line_not_blank(line) == 0) {
      return true;
    }
  }
}

bool next_value(line_reader& lines, std::string_view key, std::string_view& value) {
  sought_key sought{.key = key};
  std::string_view line;
  while (next_line_with(lines, std::span(&sought, 1), line)) {
    if (find_macro_value(line, key, value, macro_delimiters) != no_value) {
      return true;
    }
  }
  return false;
}

}  // namespace morvane

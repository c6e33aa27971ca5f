#include "headers/line_scanner.h"

#include <charconv>
#include <cstdlib>
#include <string>

#include "headers/length_check.h"

namespace morvane {

namespace {

bool is_in(const delimiter_set& delimiters, char c) {
  return delimiters.holds[static_cast<unsigned char>(c)];
}

std::string_view skip_delimiters(std::string_view text, const delimiter_set& delimiters) {
  std::size_t begin = 0;
  while (begin < text.size() && is_in(delimiters, text[begin])) {
    ++begin;
  }
  return text.substr(begin);
}

/// Removes the next token from the front of the text and returns it; empty at the end.
std::string_view take_token(std::string_view& text, const delimiter_set& delimiters) {
  text = skip_delimiters(text, delimiters);
  std::size_t end = 0;
  while (end < text.size() && text[end] != '\0' && !is_in(delimiters, text[end])) {
    ++end;
  }
  const std::string_view token = text.substr(0, end);
  text.remove_prefix(end);
  return token;
}

}  // namespace

int split_line(std::string_view line, const delimiter_set& delimiters,
               std::span<std::string_view> slots) {
  if (check_length_limit(line, line_limit) != 0) {
    return -1;
  }
  for (std::string_view& slot : slots) {
    const std::string_view token = take_token(line, delimiters);
    if (token.empty()) {
      break;
    }
    slot = token;
  }
  return 0;
}

std::size_t find_macro_value(std::string_view line, std::string_view key, std::string_view& value,
                             const delimiter_set& delimiters) {
  const std::size_t position = line.find(key);
  if (position == std::string_view::npos) {
    return no_value;
  }
  std::string_view token;
  split_line(line.substr(position + key.size()), delimiters, std::span(&token, 1));
  if (token.empty()) {
    return no_value;
  }
  value = token;
  return position;
}

int check_line_not_blank(std::string_view line) {
  if (check_length_limit(line, line_limit) != 0) {
    return -1;
  }
  const std::string_view rest = skip_delimiters(line, blank_delimiters);
  return rest.empty() || rest.front() == '\0' ? -1 : 0;
}

std::size_t decimal_length(std::string_view value) {
  const std::string text(value);
  char* end = nullptr;
  static_cast<void>(std::strtol(text.c_str(), &end, 10));
  return static_cast<std::size_t>(end - text.c_str());
}

long decimal_value(std::string_view value) {
  // If from_chars finds a number, strtol finds the same one, but more slowly.
  long number = 0;
  const auto result = std::from_chars(value.data(), value.data() + value.size(), number);
  return result.ec == std::errc() ? number : std::strtol(std::string(value).c_str(), nullptr, 10);
}

}  // namespace morvane

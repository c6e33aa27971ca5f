#include "cli/lint/c/c_text.h"

#include <algorithm>
#include <array>

namespace morvane::cli {

namespace {

/// The position behind the literal that begins at a position. An open one ends with the line.
std::size_t end_of_literal(std::string_view text, std::size_t begin) {
  std::size_t at = begin + 1;
  while (at < text.size() && text[at] != text[begin]) {
    at += text[at] == '\\' ? 2U : 1U;
  }
  return std::min(at + 1, text.size());
}

/// A table is faster than the comparisons.
constexpr std::array<bool, 256> name_characters() {
  std::array<bool, 256> in_names{};
  for (std::size_t i = 0; i < in_names.size(); ++i) {
    in_names.at(i) = is_name_character(static_cast<char>(i));
  }
  return in_names;
}

/// Two pieces of a text with the space between them that a comment is. Uses the buffer only if both
/// hold something.
std::string_view join_pieces(std::string_view first, std::string_view second, std::string& buffer) {
  second = trimmed(second);
  if (first.empty() || second.empty()) {
    return first.empty() ? second : first;
  }
  if (first.data() != buffer.data()) {
    buffer = first;
  }
  return buffer.append(" ").append(second);
}

}  // namespace

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && is_white(text.front())) {
    text.remove_prefix(1);
  }
  while (!text.empty() && is_white(text.back())) {
    text.remove_suffix(1);
  }
  return text;
}

std::string_view leading_name(std::string_view text) {
  static constexpr std::array<bool, 256> in_names = name_characters();
  if (text.empty() || is_digit(text.front())) {
    return {};
  }
  const auto is_in_name = [](char c) { return in_names[static_cast<unsigned char>(c)]; };
  // Unlike the algorithm in ranges, this one looks at four characters in a step.
  // NOLINTNEXTLINE(modernize-use-ranges)
  const auto* const end = std::find_if_not(text.begin(), text.end(), is_in_name);
  return {text.begin(), end};
}

bare_text without_comments(std::string_view text, std::string& buffer) {
  bare_text bare;
  std::size_t kept = 0;  // where the piece begins that is being read
  std::size_t at = 0;
  while (at < text.size()) {
    const char c = text[at];
    if (c == '"' || c == '\'') {
      at = end_of_literal(text, at);
      continue;
    }
    const std::string_view sign = text.substr(at, 2);
    if (c != '/' || (sign != "//" && sign != "/*")) {
      ++at;
      continue;
    }
    const std::size_t close = sign == "/*" ? text.find("*/", at + 2) : std::string_view::npos;
    if (close == std::string_view::npos) {
      bare.end = sign == "/*" ? text_end::open_comment : text_end::line_comment;
      bare.comment = at;
      text = text.substr(0, at);
      break;
    }
    bare.text = join_pieces(bare.text, text.substr(kept, at - kept), buffer);
    kept = at = close + 2;
  }
  bare.text = join_pieces(bare.text, text.substr(kept), buffer);
  return bare;
}

}  // namespace morvane::cli

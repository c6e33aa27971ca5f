// The characters of C, and the text of a line without its comments.
#pragma once

#include <string>
#include <string_view>

namespace morvane::cli {

/// Whether C takes a character for white space inside a line.
constexpr bool is_white(char c) {
  return c == ' ' || c == '\t' || c == '\v' || c == '\f' || c == '\r' || c == '\0';
}

constexpr bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

/// Whether a character can be part of a macro's name. Compilers take "$" and letters of other
/// alphabets too.
constexpr bool is_name_character(char c) {
  return is_digit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '$' ||
         static_cast<unsigned char>(c) >= 0x80;
}

/// The text without white space at its begin and its end.
std::string_view trimmed(std::string_view text);

/// The name that a text begins with; empty if it begins with something else.
std::string_view leading_name(std::string_view text);

/// What ends a text without comments.
enum class text_end { line, open_comment, line_comment };

/// A text without its comments, trimmed. It lies in the text itself, or in the buffer if a comment
/// was in its middle. Comment signs in literals are no comments.
struct bare_text {
  std::string_view text;
  text_end end = text_end::line;
  std::size_t comment = 0;  // where the comment begins that does not end
};
bare_text without_comments(std::string_view text, std::string& buffer);

}  // namespace morvane::cli

// Cuts a header line into tokens and finds macro values on it. This is no parser for C: the name of
// a macro is found as a plain substring, and the first token after it is its value.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace morvane {

/// A set of characters. One or more of them separate two tokens.
struct delimiter_set {
  std::array<bool, 256> holds{};

  constexpr explicit delimiter_set(std::string_view characters) {
    for (const char c : characters) {
      holds[static_cast<unsigned char>(c)] = true;
    }
  }
};

/// Cut the text after a macro's name. A carriage return is not among them: in a header with CR LF
/// line ends it stays at the end of a value.
inline constexpr delimiter_set macro_delimiters{" /*\t\",;:="};

/// The same without the slash, which may be part of a layer's name.
inline constexpr delimiter_set layer_name_delimiters{" *\t\",;:="};

/// The characters of a blank line.
inline constexpr delimiter_set blank_delimiters{" \t\r\n"};

inline constexpr std::size_t no_value = std::string_view::npos;

/// Cuts a line into tokens and stores them in the slots, in order, until there are no more tokens
/// or slots. Other slots keep their values. A NUL ends the line, as with strtok_r. Returns 0. For a
/// line that is too long, reports the limit LINE_LEN, keeps all slots and returns -1.
int split_line(std::string_view line, const delimiter_set& delimiters,
               std::span<std::string_view> slots);

/// Sets value to the first token after the first occurrence of the key on the line and returns the
/// position of the key. If the key or a token after it is missing, keeps value and returns
/// no_value.
std::size_t find_macro_value(std::string_view line, std::string_view key, std::string_view& value,
                             const delimiter_set& delimiters);

/// Returns 0 for a line with a token and -1 for a blank one. A line that is too long is reported
/// and counts as blank, so that every parser ignores it.
int check_line_not_blank(std::string_view line);

/// How many characters of a value its number has, with what may come before the digits; 0 without
/// a digit.
std::size_t decimal_length(std::string_view value);

/// The number that strtol reads from a value in base 10; 0 for text and for hexadecimal.
long decimal_value(std::string_view value);

}  // namespace morvane

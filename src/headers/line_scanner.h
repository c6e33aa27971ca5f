// Cuts a header line into tokens and finds macro values on it. Nothing here parses C: a macro's
// name is found as a plain substring, and the first token after it is its value.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace morvane {

/// A set of single characters, any run of which stands between two tokens.
struct delimiter_set {
  std::array<bool, 256> holds{};

  constexpr explicit delimiter_set(std::string_view characters) {
    for (const char c : characters) {
      holds[static_cast<unsigned char>(c)] = true;
    }
  }
};

/// Cuts the text after a macro's name. A carriage return is no delimiter: in a header with CR LF
/// line ends it stays at the end of a value.
inline constexpr delimiter_set macro_delimiters{" /*\t\",;:="};

/// The same without the slash, which may stand in a layer's name.
inline constexpr delimiter_set layer_name_delimiters{" *\t\",;:="};

/// What a blank line is made of.
inline constexpr delimiter_set blank_delimiters{" \t\r\n"};

inline constexpr std::size_t no_value = std::string_view::npos;

/// Cuts a line into tokens and puts them into the slots, in order, until either runs out; further
/// slots stay as they are. Like strtok_r on a copy of the line: a NUL ends it. Returns 0; or, for a
/// line that is too long, reports the limit LINE_LEN, leaves the slots alone and returns -1.
int split_line(std::string_view line, const delimiter_set& delimiters,
               std::span<std::string_view> slots);

/// Sets value to the first token after the first occurrence of the key on the line and returns the
/// position of the key; returns no_value, and leaves value alone, when the key or a token after it
/// is missing.
std::size_t find_macro_value(std::string_view line, std::string_view key, std::string_view& value,
                             const delimiter_set& delimiters);

/// Returns 0 for a line that holds a token and -1 for a blank one. A line that is too long is
/// reported and counts as blank, so that every parser passes over it.
int check_line_not_blank(std::string_view line);

/// A value as strtol reads it in base 10; 0 for what is no number, hexadecimal included.
long decimal_value(std::string_view value);

}  // namespace morvane

// Texts from packages and headers, made safe for a terminal.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "io/message.h"

namespace morvane::cli {

/// Whether a byte is a control character: below 0x20, or 0x7F.
constexpr bool is_control(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return value < 0x20 || value == 0x7F;
}

/// Whether a byte is one of the second to last of a character in UTF-8.
constexpr bool is_continuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

inline constexpr std::string_view hexadecimal_digits = "0123456789abcdef";

/// Appends the two digits of a byte, from these 16.
inline void append_digits(std::string& text, std::uint8_t byte,
                          std::string_view digits = hexadecimal_digits) {
  text += {digits[byte >> 4U], digits[byte & 0xFU]};
}

/// The text with every control character, and every byte that is not UTF-8, as \x and two
/// hexadecimal digits: "a\x1b[0m". The control characters U+0080 to U+009F count too. What turns
/// the direction of the text around it, and codes that mean no character, are as \u202e.
std::string printable(std::string_view text);

/// The bytes of the escape or the character that a printable text begins with.
std::size_t shown_length(std::string_view shown);

/// The pieces, texts and numbers, one after the other.
template <class... Pieces>
std::string joined(const Pieces&... pieces) {
  std::string text;
  append_pieces(text, pieces...);
  return text;
}

/// "1 port", "2 ports"
std::string count_of(std::uint64_t number, std::string_view thing);

/// "0x1f4"
std::string hexadecimal(std::uint64_t number);

/// The printable text between double quotes, for messages.
std::string in_quotes(std::string_view text);

}  // namespace morvane::cli

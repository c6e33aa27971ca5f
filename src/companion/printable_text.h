// Texts from packages and headers, made safe for a terminal.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "io/message.h"

namespace morvane::companion {

/// Whether a byte is a control character: below 0x20, or 0x7F.
constexpr bool is_control(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return value < 0x20 || value == 0x7F;
}

/// The text with every control character, and every byte that is not UTF-8, as \x and two
/// hexadecimal digits: "a\x1b[0m". The control characters U+0080 to U+009F count too.
std::string printable(std::string_view text);

/// The pieces, texts and numbers, one after the other.
template <class... Pieces>
std::string joined(const Pieces&... pieces) {
  std::string text;
  append_pieces(text, pieces...);
  return text;
}

/// "0x1f4"
std::string hexadecimal(std::uint64_t number);

/// The printable text between double quotes, for messages.
std::string in_quotes(std::string_view text);

}  // namespace morvane::companion

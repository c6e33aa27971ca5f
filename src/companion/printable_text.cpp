#include "companion/printable_text.h"

#include <array>
#include <charconv>
#include <cstddef>

namespace morvane::companion {

namespace {

/// How characters of one length are written in UTF-8.
struct sequence_form {
  std::size_t length;         // bytes
  std::uint8_t lead_mask;     // the bits of the first byte that tell the length,
  std::uint8_t lead;          // and their value
  std::uint32_t lowest_code;  // a lower one is written shorter
};

constexpr std::array<sequence_form, 3> sequence_forms{{
    {2, 0xE0, 0xC0, 0x80},
    {3, 0xF0, 0xE0, 0x800},
    {4, 0xF8, 0xF0, 0x10000},
}};

constexpr bool is_printable_code(std::uint32_t code) {
  const bool is_control_code = code < 0xA0;
  const bool is_surrogate = code >= 0xD800 && code <= 0xDFFF;
  return !is_control_code && !is_surrogate && code <= 0x10FFFF;
}

/// Returns the code that the text begins with in this form, or 0 when it does not.
std::uint32_t decode(std::string_view text, const sequence_form& form) {
  const auto first = static_cast<std::uint8_t>(text[0]);
  if ((first & form.lead_mask) != form.lead || text.size() < form.length) {
    return 0;
  }
  std::uint32_t code = first & static_cast<std::uint8_t>(~form.lead_mask);
  for (const char byte : text.substr(1, form.length - 1)) {
    const auto value = static_cast<std::uint8_t>(byte);
    if ((value & 0xC0U) != 0x80) {
      return 0;
    }
    code = code << 6U | (value & 0x3FU);
  }
  return code >= form.lowest_code ? code : 0;
}

/// The length of the printable character that a text begins with, in bytes; 0 for anything else.
std::size_t printable_length(std::string_view text) {
  if (static_cast<std::uint8_t>(text[0]) < 0x80) {
    return is_control(text[0]) ? 0 : 1;
  }
  for (const sequence_form& form : sequence_forms) {
    if (is_printable_code(decode(text, form))) {
      return form.length;
    }
  }
  return 0;
}

void append_escaped(std::string& shown, char byte) {
  constexpr std::string_view digits = "0123456789abcdef";
  const auto value = static_cast<std::uint8_t>(byte);
  shown += "\\x";
  shown += digits[value >> 4U];
  shown += digits[value & 0xFU];
}

}  // namespace

std::string printable(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = printable_length(text);
    if (length == 0) {
      append_escaped(shown, text[0]);
    } else {
      shown += text.substr(0, length);
    }
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return shown;
}

std::string hexadecimal(std::uint64_t number) {
  std::array<char, 16> digits{};
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16);
  return joined("0x", std::string_view(digits.data(), result.ptr));
}

std::string in_quotes(std::string_view text) {
  std::string shown = printable(text);
  shown.insert(shown.begin(), '"');
  return shown += '"';
}

}  // namespace morvane::companion

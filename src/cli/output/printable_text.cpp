#include "cli/output/printable_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

namespace morvane::cli {

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

/// A character of a text. Its length in bytes is 0 when the text begins with none.
struct character {
  std::uint32_t code;
  std::size_t length;
};

constexpr bool is_surrogate(std::uint32_t code) {
  return code >= 0xD800 && code <= 0xDFFF;
}

/// Marks, embeddings and isolates: invisible, and they turn the direction of what follows.
constexpr bool is_direction(std::uint32_t code) {
  return code == 0x61C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E) ||
         (code >= 0x2066 && code <= 0x2069);
}

/// Codes that mean no character. HTML and XML forbid them.
constexpr bool is_noncharacter(std::uint32_t code) {
  return (code >= 0xFDD0 && code <= 0xFDEF) || (code & 0xFFFEU) == 0xFFFE;
}

/// The character of this form that the text begins with.
character decode(std::string_view text, const sequence_form& form) {
  const auto first = static_cast<std::uint8_t>(text[0]);
  if ((first & form.lead_mask) != form.lead || text.size() < form.length) {
    return {};
  }
  std::uint32_t code = first & static_cast<std::uint8_t>(~form.lead_mask);
  for (const char byte : text.substr(1, form.length - 1)) {
    if (!is_continuation(byte)) {
      return {};
    }
    code = code << 6U | (static_cast<std::uint8_t>(byte) & 0x3FU);
  }
  const bool is_sound = code >= form.lowest_code && code <= 0x10FFFF && !is_surrogate(code);
  return is_sound ? character{code, form.length} : character{};
}

character first_character(std::string_view text) {
  if (static_cast<std::uint8_t>(text[0]) < 0x80) {
    return {static_cast<std::uint8_t>(text[0]), 1};
  }
  for (const sequence_form& form : sequence_forms) {
    if (const character found = decode(text, form); found.length != 0) {
      return found;
    }
  }
  return {};
}

constexpr bool is_control_code(std::uint32_t code) {
  return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

void append_bytes(std::string& shown, std::string_view bytes) {
  for (const char byte : bytes) {
    shown += "\\x";
    append_digits(shown, static_cast<std::uint8_t>(byte));
  }
}

/// Appends the character or the byte that a text begins with. Returns its length in bytes.
std::size_t append_first(std::string& shown, std::string_view text) {
  const character first = first_character(text);
  if (first.length == 0) {
    append_bytes(shown, text.substr(0, 1));
    return 1;
  }
  if (is_control_code(first.code)) {
    append_bytes(shown, text.substr(0, first.length));
  } else if (is_direction(first.code) || is_noncharacter(first.code)) {
    append_pieces(shown, "\\u", std::string_view(hexadecimal(first.code)).substr(2));
  } else {
    shown += text.substr(0, first.length);
  }
  return first.length;
}

/// How many hexadecimal digits follow a backslash and a letter, at most so many.
std::size_t digits_of_escape(std::string_view shown, std::size_t most) {
  const std::string_view rest = shown.substr(std::min<std::size_t>(2, shown.size()), most);
  return std::min(rest.find_first_not_of(hexadecimal_digits), rest.size());
}

}  // namespace

std::string printable(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  while (!text.empty()) {
    text.remove_prefix(append_first(shown, text));
  }
  return shown;
}

std::size_t shown_length(std::string_view shown) {
  const bool is_byte = shown.starts_with("\\x");
  const bool is_code = shown.starts_with("\\u");
  const std::size_t digits = is_byte ? digits_of_escape(shown, 2) : digits_of_escape(shown, 6);
  if ((is_byte && digits == 2) || (is_code && digits >= 3)) {
    return 2 + digits;
  }
  const auto* const end = std::find_if_not(shown.begin() + 1, shown.end(), is_continuation);
  return static_cast<std::size_t>(end - shown.begin());
}

std::string count_of(std::uint64_t number, std::string_view thing) {
  return joined(number, " ", thing, number == 1 ? "" : "s");
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

}  // namespace morvane::cli

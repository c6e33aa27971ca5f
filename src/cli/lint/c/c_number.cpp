#include "cli/lint/c/c_number.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "cli/lint/c/c_text.h"

namespace morvane::cli {

namespace {

/// u, l and ll in any case and order, each at most once.
bool is_suffix(std::string_view text) {
  const auto is_unsigned = [](char c) { return c == 'u' || c == 'U'; };
  if (!text.empty() && is_unsigned(text.front())) {
    text.remove_prefix(1);
  } else if (!text.empty() && is_unsigned(text.back())) {
    text.remove_suffix(1);
  }
  return text.empty() || text == "l" || text == "L" || text == "ll" || text == "LL";
}

/// The base that a constant is written in. Removes its sign.
int take_base(std::string_view& text) {
  const std::string_view sign = text.substr(0, 2);
  if (sign == "0x" || sign == "0X") {
    text.remove_prefix(2);
    return 16;
  }
  if (sign == "0b" || sign == "0B") {
    text.remove_prefix(2);
    return 2;
  }
  return text.starts_with('0') && text.size() > 1 && is_digit(text[1]) ? 8 : 10;
}

c_number constant_of(std::string_view text) {
  c_number number;
  const int base = take_base(text);
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number.magnitude, base);
  number.is_too_large = result.ec == std::errc::result_out_of_range;
  const std::string_view suffix(result.ptr, static_cast<std::size_t>(end - result.ptr));
  number.is_known = result.ec != std::errc::invalid_argument && is_suffix(suffix);
  number.is_octal = base == 8;
  return number;
}

/// What is left of an expression without the parentheses around it and the signs that change
/// nothing.
std::string_view unwrapped(std::string_view text) {
  text = trimmed(text);
  while (!text.empty()) {
    if (text.front() == '(' && text.back() == ')') {
      text = trimmed(text.substr(1, text.size() - 2));
    } else if (text.front() == '+') {
      text = trimmed(text.substr(1));
    } else {
      break;
    }
  }
  return text;
}

c_number number_without_sign(std::string_view text) {
  return !text.empty() && is_digit(text.front()) ? constant_of(text) : c_number();
}

}  // namespace

c_number c_number_of(std::string_view text) {
  text = unwrapped(text);
  if (!text.starts_with('-')) {
    return number_without_sign(text);
  }
  // Unsigned constants, as those with a "u" may be and those that are not decimal, stay positive
  // with a sign: their value depends on their type.
  const std::string_view rest = trimmed(text.substr(1));
  c_number number = number_without_sign(unwrapped(rest));
  const bool is_plain = std::ranges::all_of(rest, is_digit) && !number.is_octal;
  number.is_known = number.is_known && (is_plain || number.magnitude == 0);
  number.is_negative = number.magnitude != 0;
  return number;
}

bool has_value(const c_number& number, std::int64_t value) {
  if (!number.is_known || number.is_too_large) {
    return false;
  }
  const auto bits = static_cast<std::uint64_t>(value);
  return number.is_negative ? value < 0 && number.magnitude == 0 - bits
                            : value >= 0 && number.magnitude == bits;
}

std::optional<std::string_view> c_string_of(std::string_view text) {
  if (text.size() < 2 || text.front() != '"' || text.back() != '"') {
    return std::nullopt;
  }
  text = text.substr(1, text.size() - 2);
  const bool is_one_literal = text.find_first_of("\"\\") == std::string_view::npos;
  return is_one_literal ? std::optional(text) : std::nullopt;
}

}  // namespace morvane::cli

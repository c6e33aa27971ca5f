// The value that C gives a number or a text.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace morvane::cli {

/// An integer constant, maybe with a sign and in parentheses.
struct c_number {
  bool is_known = false;  // false for anything else, expressions too
  bool is_negative = false;
  bool is_too_large = false;  // for 64 bits
  bool is_octal = false;
  std::uint64_t magnitude = 0;
};
c_number c_number_of(std::string_view text);

/// Whether C gives the text this value.
bool has_value(const c_number& number, std::int64_t value);

/// What is between the quotes of a text, as it is written; nothing for anything else.
std::optional<std::string_view> c_string_of(std::string_view text);

}  // namespace morvane::cli

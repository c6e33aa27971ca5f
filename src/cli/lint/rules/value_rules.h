// Whether the value that the pack run takes is the one that C gives the macro.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "cli/findings/findings.h"
#include "cli/lint/c/c_lines.h"
#include "cli/lint/c/macro_index.h"
#include "format/macros.h"

namespace morvane::cli {

/// What is wrong with a value.
struct value_fault {
  const finding_kind* kind;
  std::string text;
  std::optional<severity> level{};  // that of the kind if there is none
};

/// A value in a package, as messages show it: a number, or a text in quotes.
std::string packed_value(const macro_row& row, std::string_view word);

/// What a field without a macro holds, as messages show it. The record is the empty one.
std::string default_value(const macro_row& row, std::span<const std::byte> empty_record);

/// Whether two words are the same value in a field.
bool is_same_value(const macro_row& row, std::string_view one, std::string_view other);

/// Whether a word gives the field the value that the record holds by default.
bool has_default_value(const macro_row& row, std::string_view word,
                       std::span<const std::byte> empty_record);

/// Whether C gives the field the value that the record holds by default.
bool is_default(const macro_row& row, std::string_view c_value,
                std::span<const std::byte> empty_record);

/// Compares the word that the pack run takes for the value of a macro with what C puts in the
/// macro's place. The text names the macro.
std::optional<value_fault> compare_number(const macro_row& row, std::string_view macro,
                                          std::string_view word, const c_line& line,
                                          std::string_view c_value);
std::optional<value_fault> compare_text(std::string_view macro, std::string_view word,
                                        std::string_view c_value, macro_index& macros);

}  // namespace morvane::cli

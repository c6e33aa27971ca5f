#include "cli/lint/rules/value_rules.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

#include "cli/lint/c/c_number.h"
#include "cli/lint/c/c_text.h"
#include "cli/output/printable_text.h"
#include "format/records.h"
#include "headers/line_scanner.h"

namespace morvane::cli {

namespace {

/// A record that is large enough for every number: those of a port come before its texts.
using any_record = std::array<std::byte, sizeof(var_desc)>;
static_assert(offsetof(port_desc, port_name) < sizeof(any_record) &&
              sizeof(smb_desc) < sizeof(any_record) &&
              offsetof(dvi_desc, dag_name) < sizeof(any_record));

long packed_number(const macro_row& row, std::string_view word) {
  any_record record{};
  store_number(record, row, decimal_value(word));
  return load_number(record, row);
}

std::string_view integer_width(const macro_row& row) {
  switch (row.kind) {
    case macro_kind::word:
      return "32 bits without a sign";
    case macro_kind::byte:
      return "8 bits without a sign";
    case macro_kind::signed_byte:
      return "8 bits with a sign";
    default:
      return "1 bit";
  }
}

/// "net_data_W becomes 0"
std::string becomes(const macro_row& row, std::string_view macro, std::string_view word) {
  return joined(": ", printable(macro), " becomes ", packed_value(row, word));
}

/// Whether a word is written in a base that the pack run does not know: 0x40, 0b11, 010.
bool has_other_base(std::string_view word) {
  if (word.starts_with('-') || word.starts_with('+')) {
    word.remove_prefix(1);
  }
  return word.size() > 1 && word[0] == '0' &&
         (is_digit(word[1]) || word[1] == 'x' || word[1] == 'X' || word[1] == 'b' ||
          word[1] == 'B');
}

/// Whether what follows the digits of a number says that it is a float without a fraction: ".0f".
bool is_whole_float(std::string_view rest) {
  const std::size_t fraction = std::min(rest.find_first_not_of('0', 1), rest.size());
  rest = rest.starts_with('.') ? rest.substr(fraction) : " ";
  return rest.empty() || rest == "f" || rest == "F" || rest == "l" || rest == "L";
}

value_fault octal_fault(std::string_view word, const c_number& number, const std::string& end) {
  if (!number.is_known) {
    return {kind_of("not-decimal"), joined(printable(word), " is no octal number for C", end)};
  }
  return {kind_of("not-decimal"), joined(printable(word), " is octal for C, ",
                                         number.is_negative ? "-" : "", number.magnitude, end)};
}

/// A number that C gives another value, or none.
value_fault number_fault(const macro_row& row, std::string_view taken, std::string_view c_value,
                         const std::string& end) {
  const std::string_view word = trimmed(taken);
  const c_number number = c_number_of(c_value);
  const std::size_t digits = decimal_length(word);
  const bool is_whole = digits == word.size();
  if (has_other_base(word) && is_whole && word == c_value && !number.is_too_large) {
    return octal_fault(word, number, end);
  }
  if (digits == 0 || (has_other_base(word) && !is_whole)) {
    return {kind_of("not-decimal"), joined(printable(word), " is not decimal", end)};
  }
  if (!is_whole) {
    return {kind_of("trailing-text"),
            joined("only ", word.substr(0, digits), " of ", printable(word), " is read", end),
            is_whole_float(word.substr(digits)) ? severity::warning : severity::error};
  }
  if (number.is_known || word == c_value) {
    return {kind_of("out-of-range"),
            joined(printable(word), " does not fit into ", integer_width(row), end)};
  }
  if (c_value.starts_with('"')) {
    return {kind_of("quoted-number"),
            joined(printable(c_value), " is a text for C, not a number", end),
            c_string_of(c_value) == word ? severity::warning : severity::error};
  }
  const bool is_same = trimmed(c_value.substr(0, c_value.find(';'))) == word;
  return {kind_of("cut-name"),
          joined("the value ", in_quotes(c_value), " is cut at a separator", end),
          is_same ? severity::warning : severity::error};
}

/// Nothing for C, but a word of a comment behind the macro.
value_fault missing_value(std::string_view macro, std::string_view word, const std::string& end) {
  return {kind_of("no-value"), joined(printable(macro), " has no value, so ", in_quotes(word),
                                      " behind it is read", end)};
}

/// What a text is for C: what is between its quotes, or what is written without them.
std::string_view c_text(std::string_view c_value) {
  const auto literal = c_string_of(c_value);
  return literal ? *literal : c_value;
}

/// The most decimal digits of which every number fits into the field: 2 for a byte, as 999 does not
/// fit, and none for a flag.
std::size_t sure_digits(const macro_row& row) {
  switch (row.kind) {
    case macro_kind::word:
      return std::numeric_limits<std::uint32_t>::digits10;
    case macro_kind::byte:
      return std::numeric_limits<std::uint8_t>::digits10;
    case macro_kind::signed_byte:
      return std::numeric_limits<std::int8_t>::digits10;
    default:
      return 0;
  }
}

/// Whether C and the pack run surely read the same number, as in most lines: a few decimal digits.
bool is_surely_same(const macro_row& row, std::string_view word, std::string_view c_value) {
  return !word.empty() && word.data() == c_value.data() && word.size() == c_value.size() &&
         word.size() <= sure_digits(row) && (word.size() == 1 || word.front() != '0') &&
         std::ranges::all_of(word, is_digit);
}

}  // namespace

std::string packed_value(const macro_row& row, std::string_view word) {
  return row.kind == macro_kind::text ? in_quotes(word) : joined(packed_number(row, word));
}

std::string default_value(const macro_row& row, std::span<const std::byte> empty_record) {
  return row.kind == macro_kind::text ? in_quotes(load_text(empty_record, row))
                                      : joined(load_number(empty_record, row));
}

bool is_same_value(const macro_row& row, std::string_view one, std::string_view other) {
  return row.kind == macro_kind::text ? one == other
                                      : packed_number(row, one) == packed_number(row, other);
}

bool has_default_value(const macro_row& row, std::string_view word,
                       std::span<const std::byte> empty_record) {
  return row.kind == macro_kind::text ? word == load_text(empty_record, row)
                                      : packed_number(row, word) == load_number(empty_record, row);
}

bool is_default(const macro_row& row, std::string_view c_value,
                std::span<const std::byte> empty_record) {
  if (row.kind == macro_kind::text) {
    const auto literal = c_string_of(c_value);
    return literal && literal->empty();
  }
  return has_value(c_number_of(c_value), load_number(empty_record, row));
}

std::optional<value_fault> compare_number(const macro_row& row, std::string_view macro,
                                          std::string_view word, const c_line& line,
                                          std::string_view c_value) {
  const bool is_plain = !line.continued && !line.has_parameters;
  if (is_plain && (is_surely_same(row, word, c_value) ||
                   has_value(c_number_of(c_value), packed_number(row, word)))) {
    return std::nullopt;
  }
  const std::string end = becomes(row, macro, word);
  if (line.continued) {
    return value_fault{kind_of("continued-line"),
                       joined("the value goes on in the next line, which is not read", end)};
  }
  if (line.has_parameters) {
    return value_fault{kind_of("not-decimal"),
                       joined(printable(macro), " is a macro with parameters", end)};
  }
  if (c_value.empty()) {
    return missing_value(macro, word, end);
  }
  return number_fault(row, word, c_value, end);
}

std::optional<value_fault> compare_text(std::string_view macro, std::string_view word,
                                        std::string_view c_value, macro_index& macros) {
  const std::string_view text = c_text(c_value);
  const bool is_literal = text.data() != c_value.data();
  if (text == word && (is_literal || leading_name(word) != word || !macros.defines(word))) {
    return std::nullopt;
  }
  const std::string end = joined(": ", printable(macro), " becomes ", in_quotes(word));
  if (text == word) {
    return value_fault{kind_of("macro-as-value"),
                       joined(printable(word), " is itself a macro, which is not resolved", end)};
  }
  if (text.empty()) {
    return missing_value(macro, word, end);
  }
  if (word.ends_with('\r') && text == word.substr(0, word.size() - 1)) {
    return value_fault{
        kind_of("carriage-return"),
        joined("the line ends in a carriage return, which becomes part of the name", end),
        severity::error};
  }
  if (text.find('\\') != std::string_view::npos) {
    return value_fault{kind_of("escape-sequence"), joined("the backslash in ", printable(c_value),
                                                          " is read as a letter", end)};
  }
  return value_fault{kind_of("cut-name"),
                     joined("the value ", printable(c_value), " is cut at a separator", end)};
}

}  // namespace morvane::cli

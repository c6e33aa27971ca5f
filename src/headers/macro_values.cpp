#include "headers/macro_values.h"

#include "headers/length_check.h"
#include "headers/line_scanner.h"

namespace morvane {

namespace {

/// Like starts_with, but faster: in most rows of a table the last character of the suffix differs.
bool begins_with(std::string_view text, std::string_view suffix) {
  return text.size() >= suffix.size() && text[suffix.size() - 1] == suffix.back() &&
         text.starts_with(suffix);
}

/// The value of the macro NAME + suffix + tail; empty if it has none. As in find_macro_value, only
/// the first occurrence of the macro counts.
std::string_view macro_value(const named_line& named, std::string_view suffix,
                             std::string_view tail, const delimiter_set& delimiters) {
  std::string_view value;
  for (const std::string_view rest : named.rests) {
    if (begins_with(rest, suffix) && rest.substr(suffix.size()).starts_with(tail)) {
      split_line(rest.substr(suffix.size() + tail.size()), delimiters, std::span(&value, 1));
      break;
    }
  }
  return value;
}

std::string_view macro_value(const named_line& named, const macro_row& row) {
  const delimiter_set& delimiters =
      row.kind == macro_kind::text ? layer_name_delimiters : macro_delimiters;
  const std::string_view value = macro_value(named, row.suffix, "", delimiters);
  // The name of a bit offset, and maybe other names, begin with the name of a flag.
  const bool begins_longer_macro = !value.empty() && row.kind == macro_kind::guarded_bit &&
                                   !macro_value(named, row.suffix, "_", delimiters).empty();
  return begins_longer_macro ? std::string_view() : value;
}

}  // namespace

void set_line(named_line& named, std::string_view line) {
  named.line = line;
  named.rests.clear();
  for (std::size_t place = line.find(named.name); place != std::string_view::npos;
       place = line.find(named.name, place + 1)) {
    named.rests.push_back(line.substr(place + named.name.size()));
  }
}

macro_match find_macro(const named_line& named, std::span<const macro_row> macros) {
  for (const macro_row& row : macros) {
    const std::string_view value = macro_value(named, row);
    if (!value.empty()) {
      return {.row = &row, .value = value};
    }
  }
  return {};
}

int store_match(const macro_match& match, std::span<std::byte> record) {
  if (match.row == nullptr) {
    return 0;
  }
  if (match.row->kind != macro_kind::text) {
    store_number(record, *match.row, decimal_value(match.value));
    return 0;
  }
  if (check_length_limit(match.value, layer_name_limit) != 0) {
    return -1;
  }
  store_text(record.subspan(match.row->offset, MORVANE_IO_NAME_WIDTH), match.value);
  return 0;
}

}  // namespace morvane

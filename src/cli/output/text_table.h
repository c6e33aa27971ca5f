// Tables in columns, for people.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "io/message.h"

namespace morvane::cli {

/// A table with as many columns as its first row, the heads, has cells.
struct text_table {
  std::vector<bool> is_number;  // of each column: numbers are aligned to the right
  std::vector<std::vector<std::string>> rows{};
};

/// Adds a row of texts and numbers.
template <class... Cells>
void add_row(text_table& table, const Cells&... cells) {
  std::vector<std::string>& row = table.rows.emplace_back();
  row.reserve(sizeof...(cells));
  (row.push_back(joined(cells)), ...);
}

/// The characters of a UTF-8 text.
std::size_t width_of(std::string_view text);

/// The table as lines, each behind an indent, with two blanks between the columns and none at the
/// end of a line.
std::string str(const text_table& table, std::string_view indent);

}  // namespace morvane::cli

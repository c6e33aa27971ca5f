#include "cli/output/text_table.h"

#include <algorithm>

#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

std::vector<std::size_t> widths_of(const text_table& table) {
  std::vector<std::size_t> widths(table.is_number.size());
  for (const auto& row : table.rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      widths.at(i) = std::max(widths.at(i), width_of(row.at(i)));
    }
  }
  return widths;
}

void append_row(std::string& text, const text_table& table, const std::vector<std::string>& row,
                const std::vector<std::size_t>& widths) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    const std::string blanks(widths.at(i) - width_of(row.at(i)), ' ');
    text += i == 0 ? "" : "  ";
    text += table.is_number.at(i) ? blanks + row.at(i) : row.at(i) + blanks;
  }
  text.erase(text.find_last_not_of(' ') + 1);
  text += '\n';
}

}  // namespace

std::size_t width_of(std::string_view text) {
  return text.size() - static_cast<std::size_t>(std::ranges::count_if(text, is_continuation));
}

std::string str(const text_table& table, std::string_view indent) {
  const std::vector<std::size_t> widths = widths_of(table);
  std::string text;
  for (const auto& row : table.rows) {
    text += indent;
    append_row(text, table, row, widths);
  }
  return text;
}

}  // namespace morvane::cli

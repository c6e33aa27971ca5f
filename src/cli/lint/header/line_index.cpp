#include "cli/lint/header/line_index.h"

#include <algorithm>

namespace morvane::cli {

namespace {

constexpr std::size_t bytes_counted = 4096;  // at a time

std::uint32_t ended_lines(std::string_view text) {
  return static_cast<std::uint32_t>(std::ranges::count(text, '\n'));
}

}  // namespace

std::uint32_t line_index::line(std::size_t place) {
  while (before_.size() <= place / bytes_counted) {
    const std::size_t begin = before_.size() * bytes_counted;
    const std::uint32_t lines =
        before_.empty()
            ? 0
            : before_.back() + ended_lines(header_.substr(begin - bytes_counted, bytes_counted));
    before_.push_back(lines);
  }
  const std::size_t begin = place / bytes_counted * bytes_counted;
  return before_[place / bytes_counted] + ended_lines(header_.substr(begin, place - begin)) + 1;
}

finding_place line_index::position(std::size_t place) {
  const std::size_t newline = place == 0 ? std::string_view::npos : header_.rfind('\n', place - 1);
  const std::size_t begin = newline == std::string_view::npos ? 0 : newline + 1;
  return {.line = line(place), .column = static_cast<std::uint32_t>(place - begin + 1)};
}

}  // namespace morvane::cli

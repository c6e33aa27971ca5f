#include "cli/report/html/html_text.h"

#include <algorithm>
#include <array>

#include "cli/output/printable_text.h"
#include "cli/output/text_table.h"
#include "cli/report/model/page_limits.h"

namespace morvane::cli {

namespace {

/// How a byte that means markup is spelled as text; empty for any other.
constexpr std::string_view entity_of(char byte) {
  switch (byte) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    default:
      return "";
  }
}

/// Whether a byte needs no other spelling, wherever it is on the page.
constexpr bool is_plain(char byte) {
  return byte >= ' ' && byte <= '~' && entity_of(byte).empty();
}

/// A printable text, without markup in it.
std::string without_markup(std::string_view text) {
  std::string page;
  for (const char byte : text) {
    const std::string_view entity = entity_of(byte);
    page += entity.empty() ? std::string_view(&byte, 1) : entity;
  }
  return page;
}

constexpr std::string_view ellipsis = "\xE2\x80\xA6";

/// A number with one digit after the point, of units of so many bytes.
std::string tenths(std::uint64_t bytes, std::uint64_t unit) {
  const std::uint64_t all = bytes / unit * 10 + (bytes % unit * 10 + unit / 2) / unit;
  return joined(grouped(all / 10), ".", all % 10);
}

}  // namespace

std::string html(std::string_view text) {
  constexpr std::size_t longest_entity = 6;
  constexpr std::size_t surely_fitting = (max_text_bytes - ellipsis.size()) / longest_entity;
  if (std::ranges::all_of(text, is_plain) && text.size() <= max_text_bytes) {
    return std::string(text);
  }
  std::string page = without_markup(printable(text));
  return page.size() <= max_text_bytes ? page : short_html(text, surely_fitting);
}

std::string short_html(std::string_view text, std::size_t max_characters) {
  const std::string printed = printable(text);
  const std::string_view shown = printed;
  const std::size_t width = width_of(shown);
  if (width <= max_characters) {
    return without_markup(shown);
  }
  const std::size_t at_end = max_characters / 2;
  const std::size_t at_begin = max_characters - 1 - at_end;
  std::size_t begin_length = 0;
  std::size_t place = 0;
  for (std::size_t passed = 0; width - passed > at_end;) {
    const std::size_t length = shown_length(shown.substr(place));
    passed += width_of(shown.substr(place, length));
    place += length;
    begin_length = passed <= at_begin ? place : begin_length;
  }
  return joined(without_markup(shown.substr(0, begin_length)), ellipsis,
                without_markup(shown.substr(place)));
}

std::string grouped(std::uint64_t number) {
  constexpr std::size_t group = 3;
  std::string digits = joined(number);
  for (std::size_t at = digits.size(); at > group;) {
    at -= group;
    digits.insert(at, 1, ',');
  }
  return digits;
}

std::string counted(std::uint64_t number, std::string_view thing) {
  return joined(grouped(number), " ", thing, number == 1 ? "" : "s");
}

std::string byte_size(std::uint64_t bytes) {
  constexpr std::uint64_t kib = 1024;
  return joined(counted(bytes, "byte"),
                bytes < kib ? "" : joined(" (", tenths(bytes, kib), " KiB)"));
}

std::string rounded_size(std::uint64_t bytes) {
  struct size_unit {
    std::uint64_t bytes;
    std::string_view name;
  };
  constexpr std::array<size_unit, 4> units{{{std::uint64_t{1} << 40U, " TiB"},
                                            {std::uint64_t{1} << 30U, " GiB"},
                                            {std::uint64_t{1} << 20U, " MiB"},
                                            {std::uint64_t{1} << 10U, " KiB"}}};
  for (const size_unit& unit : units) {
    if (bytes >= unit.bytes) {
      return joined(tenths(bytes, unit.bytes), unit.name);
    }
  }
  return joined(bytes, " B");
}

std::string percent(std::uint64_t hundredths) {
  std::string text = joined(hundredths / 100);
  if (hundredths % 100 != 0) {
    append_pieces(text, ".", hundredths / 10 % 10, hundredths % 10);
  }
  return text += '%';
}

}  // namespace morvane::cli

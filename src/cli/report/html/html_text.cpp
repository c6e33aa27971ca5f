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

constexpr bool is_markup(char byte) {
  return !entity_of(byte).empty();
}

/// Whether a byte needs no other spelling, wherever it is on the page.
constexpr bool is_plain(char byte) {
  return byte >= ' ' && byte <= '~' && !is_markup(byte);
}

/// Appends a printable text, without markup in it.
void append_shown(std::string& page, std::string_view text) {
  while (!text.empty()) {
    const auto* const markup = std::ranges::find_if(text, is_markup);
    page.append(text.begin(), markup);
    text.remove_prefix(static_cast<std::size_t>(markup - text.begin()));
    if (!text.empty()) {
      page += entity_of(text[0]);
      text.remove_prefix(1);
    }
  }
}

void append_text(std::string& page, std::string_view text) {
  if (std::ranges::all_of(text, is_plain)) {
    page += text;
  } else {
    append_shown(page, printable(text));
  }
}

constexpr std::string_view ellipsis = "\xE2\x80\xA6";

/// Appends a number with one digit after the point, of units of so many bytes.
void append_tenths(std::string& page, std::uint64_t bytes, std::uint64_t unit) {
  const std::uint64_t whole = bytes / unit;
  const std::uint64_t tenths = (bytes % unit * 10 + unit / 2) / unit;
  append_pieces(page, grouped{whole + tenths / 10}, ".", tenths % 10);
}

}  // namespace

void append_piece(std::string& page, const html& piece) {
  constexpr std::size_t longest_entity = 6;
  constexpr std::size_t surely_fitting = (max_text_bytes - ellipsis.size()) / longest_entity;
  const std::size_t begin = page.size();
  append_text(page, piece.text);
  if (page.size() - begin > max_text_bytes) {
    page.resize(begin);
    append_piece(page, short_html{piece.text, surely_fitting});
  }
}

void append_piece(std::string& page, const short_html& piece) {
  const std::string text = printable(piece.text);
  const std::string_view shown = text;
  const std::size_t width = width_of(shown);
  if (width <= piece.max_characters) {
    append_shown(page, shown);
    return;
  }
  const std::size_t at_end = piece.max_characters / 2;
  const std::size_t at_begin = piece.max_characters - 1 - at_end;
  std::size_t begin_length = 0;
  std::size_t place = 0;
  for (std::size_t passed = 0; width - passed > at_end;) {
    const std::size_t length = shown_length(shown.substr(place));
    passed += width_of(shown.substr(place, length));
    place += length;
    begin_length = passed <= at_begin ? place : begin_length;
  }
  append_shown(page, shown.substr(0, begin_length));
  page += ellipsis;
  append_shown(page, shown.substr(place));
}

void append_piece(std::string& page, hex piece) {
  page += hexadecimal(piece.number);
}

void append_piece(std::string& page, grouped piece) {
  constexpr std::size_t group = 3;
  const std::size_t begin = page.size();
  append_pieces(page, piece.number);
  for (std::size_t at = page.size(); at > begin + group;) {
    at -= group;
    page.insert(page.begin() + static_cast<std::ptrdiff_t>(at), ',');
  }
}

void append_piece(std::string& page, const counted& piece) {
  append_pieces(page, grouped{piece.number}, " ", piece.thing, piece.number == 1 ? "" : "s");
}

void append_piece(std::string& page, byte_size piece) {
  constexpr std::uint64_t kib = 1024;
  append_piece(page, counted{piece.bytes, "byte"});
  if (piece.bytes >= kib) {
    page += " (";
    append_tenths(page, piece.bytes, kib);
    page += " KiB)";
  }
}

void append_piece(std::string& page, rounded_size piece) {
  struct size_unit {
    std::uint64_t bytes;
    std::string_view name;
  };
  constexpr std::array<size_unit, 4> units{{{std::uint64_t{1} << 40U, " TiB"},
                                            {std::uint64_t{1} << 30U, " GiB"},
                                            {std::uint64_t{1} << 20U, " MiB"},
                                            {std::uint64_t{1} << 10U, " KiB"}}};
  for (const size_unit& unit : units) {
    if (piece.bytes >= unit.bytes) {
      append_tenths(page, piece.bytes, unit.bytes);
      page += unit.name;
      return;
    }
  }
  append_pieces(page, piece.bytes, " B");
}

void append_piece(std::string& page, percent piece) {
  append_pieces(page, piece.hundredths / 100);
  if (piece.hundredths % 100 != 0) {
    append_pieces(page, ".", piece.hundredths / 10 % 10, piece.hundredths % 10);
  }
  page += '%';
}

}  // namespace morvane::cli

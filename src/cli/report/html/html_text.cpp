#include "cli/report/html/html_text.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

#include "cli/output/printable_text.h"
#include "cli/output/text_table.h"

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

/// Appends a printable text.
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

constexpr std::string_view ellipsis = "\xE2\x80\xA6";

/// A character or an escape on the page, which is shown whole or not at all.
struct page_unit {
  std::size_t begin;
  std::size_t end;
  std::size_t size;  // as it counts for the limit
};

/// Appends a text without its middle. The function tells how much a unit counts, by its text and
/// by its bytes on the page; end and beginning count at most so much.
template <class Function>
void append_ends(std::string& page, std::string_view text, std::size_t max_begin,
                 std::size_t max_end, Function size_of) {
  std::vector<page_unit> units;
  for (std::size_t length = 0; !text.empty(); text.remove_prefix(length)) {
    length = shown_length(text);
    const std::size_t begin = page.size();
    append_shown(page, text.substr(0, length));
    units.push_back({begin, page.size(), size_of(text.substr(0, length), page.size() - begin)});
  }
  auto first_left_out = units.begin();
  for (std::size_t size = 0; (size += first_left_out->size) <= max_begin;) {
    ++first_left_out;
  }
  auto first_of_end = units.end();
  for (std::size_t size = 0; (size += std::prev(first_of_end)->size) <= max_end;) {
    --first_of_end;
  }
  page.erase(first_left_out->begin, std::prev(first_of_end)->end - first_left_out->begin);
  page.insert(first_left_out->begin, ellipsis);
}

/// Appends a number with one digit after the point, of units of so many bytes.
void append_tenths(std::string& page, std::uint64_t bytes, std::uint64_t unit) {
  const std::uint64_t whole = bytes / unit;
  const std::uint64_t tenths = (bytes % unit * 10 + unit / 2) / unit;
  append_pieces(page, grouped{whole + tenths / 10}, ".", tenths % 10);
}

}  // namespace

bool append_piece(std::string& page, const html& piece) {
  if (piece.text.size() <= piece.max_bytes && std::ranges::all_of(piece.text, is_plain)) {
    page += piece.text;
    return false;
  }
  const std::string shown = printable(piece.text);
  const std::size_t begin = page.size();
  append_shown(page, shown);
  if (page.size() - begin <= piece.max_bytes) {
    return false;
  }
  page.resize(begin);
  const std::size_t kept = piece.max_bytes - ellipsis.size();
  append_ends(page, shown, kept - kept / 2, kept / 2,
              [](std::string_view /*unit*/, std::size_t bytes) { return bytes; });
  return true;
}

void append_piece(std::string& page, const short_html& piece) {
  if (piece.text.size() <= piece.max_characters && std::ranges::all_of(piece.text, is_plain)) {
    page += piece.text;
    return;
  }
  const std::string shown = printable(piece.text);
  if (width_of(shown) <= piece.max_characters) {
    append_shown(page, shown);
    return;
  }
  const std::size_t at_end = piece.max_characters / 2;
  append_ends(page, shown, piece.max_characters - 1 - at_end, at_end,
              [](std::string_view unit, std::size_t /*bytes*/) { return width_of(unit); });
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

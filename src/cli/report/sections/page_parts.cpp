#include "cli/report/sections/page_parts.h"

#include "cli/diff/difference_output.h"

namespace morvane::cli {

void append_piece(std::string& page, dvi_link piece) {
  append_pieces(page, "<a href=\"#d", piece.position, "\">DVI ", piece.position, "</a>");
}

void append_piece(std::string& page, const isolated& piece) {
  append_pieces(page, "<bdi>", html{piece.name}, "</bdi>");
}

void append_piece(std::string& page, const pictured_name& piece) {
  constexpr std::size_t max_characters = 48;
  append_pieces(page, "<bdi>", short_html{piece.name, max_characters}, "</bdi>");
}

void append_piece(std::string& page, port_dims piece) {
  const morvane_view_port& port = piece.port;
  constexpr std::string_view times = "\xC3\x97<wbr>";  // a line may end behind it
  append_pieces(page, port.P, times, port.D, times, port.H, times, port.W);
}

std::string_view word_of(change_mark mark) {
  return mark == change_mark::none ? "" : mark == change_mark::added ? "new" : "changed";
}

void append_piece(std::string& page, change_mark mark) {
  if (mark != change_mark::none) {
    append_pieces(page, " <b class=\"mark\">", word_of(mark), "</b>");
  }
}

change_mark mark_of_dvi(const package_changes* changes, std::uint32_t position) {
  return changes == nullptr ? change_mark::none : changes->dvis[position].mark;
}

void append_piece(std::string& page, const more_items& piece) {
  if (piece.all > piece.shown) {
    append_pieces(page, "<li>and ", grouped{piece.all - piece.shown}, " more, which <code>",
                  piece.command, "</code> tells</li>\n");
  }
}

void append_piece(std::string& page, more_links piece) {
  if (piece.all > max_links) {
    append_pieces(page, " and ", piece.all - max_links, " more");
  }
}

void write_differences(std::span<const difference> found, std::uint64_t all, std::size_t max_bytes,
                       page_output& out) {
  bounded_list list{out, max_bytes};
  for (const difference& one : found) {
    std::string line = difference_line(one);
    line.pop_back();  // the line feed
    write_entry(list, "<li>", isolated{line}, "</li>\n");
  }
  write(out, more_items{all, list.shown, "morvane diff"});
}

void append_piece(std::string& page, const bar_begin& piece) {
  append_pieces(page, "<rect class=\"", piece.kind, "\" x=\"", percent{piece.bar.place}, "\" y=\"",
                piece.top, "\" width=\"", percent{piece.bar.width}, "\" height=\"", piece.height,
                "\"><title>");
}

void append_piece(std::string& page, left_out piece) {
  if (piece.dvis > max_pictured) {
    const std::uint32_t dvis = piece.dvis - max_pictured;
    append_pieces(page, "<p class=\"dim\">", counted{dvis, "DVI"}, dvis == 1 ? " is" : " are",
                  " left out here; the tables show all.</p>\n");
  }
}

}  // namespace morvane::cli

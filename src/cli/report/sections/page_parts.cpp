#include "cli/report/sections/page_parts.h"

#include "cli/diff/difference_output.h"
#include "cli/package/package_walk.h"

namespace morvane::cli {

std::string section_begin(std::string_view id, std::string_view heading) {
  return joined("<section id=\"", id, "\" aria-labelledby=\"", id, "-head\">\n<h2 id=\"", id,
                "-head\">", heading, "</h2>\n");
}

std::string table_begin(std::string_view kind, std::initializer_list<std::string_view> columns) {
  std::string text = joined("<table class=\"", kind, "\"><thead><tr>");
  for (const std::string_view column : columns) {
    append_pieces(text, "<th scope=\"col\">", column, "</th>");
  }
  return text += "</tr></thead>\n<tbody>\n";
}

std::string scrolling_begin(std::string_view label) {
  return joined("<div class=\"long\" role=\"region\" tabindex=\"0\" aria-label=\"", label, "\">\n");
}

std::string fact(std::string_view name, std::string_view value) {
  return joined("<div><dt>", name, "</dt><dd>", value, "</dd></div>\n");
}

std::string dvi_link(std::uint32_t position) {
  return joined("<a href=\"#d", position, "\">DVI ", position, "</a>");
}

std::string fed_dvi_link(const connection& one) {
  return dvi_link(one.input.dvi);
}

std::string isolated(std::string_view name) {
  return joined("<bdi>", html(name), "</bdi>");
}

std::string pictured_name(std::string_view name, std::size_t max_characters) {
  return joined("<bdi>", short_html(name, max_characters), "</bdi>");
}

std::string pictured_dvi(const package_changes* changes, const morvane_view_dvi& dvi,
                         std::size_t max_characters) {
  return joined("<b>", dvi_link(dvi.position), "</b> ",
                pictured_name(str(dvi.dag_name), max_characters),
                label_of(mark_of_dvi(changes, dvi.position)));
}

std::string port_dims(const morvane_view_port& port) {
  constexpr std::string_view times = "\xC3\x97<wbr>";  // a line may end behind it
  return joined(port.P, times, port.D, times, port.H, times, port.W);
}

std::string_view word_of(change_mark mark) {
  return mark == change_mark::none ? "" : mark == change_mark::added ? "new" : "changed";
}

std::string label_of(change_mark mark) {
  return mark == change_mark::none ? "" : joined(" <b class=\"mark\">", word_of(mark), "</b>");
}

change_mark mark_of_dvi(const package_changes* changes, std::uint32_t position) {
  return changes == nullptr ? change_mark::none : changes->dvis[position].mark;
}

std::string more_items(std::uint64_t all, const bounded_list& list, std::string_view command) {
  return all == list.shown ? ""
                           : joined("<li>and ", grouped(all - list.shown), " more, which <code>",
                                    command, "</code> tells</li>\n");
}

void write_differences(std::span<const difference> found, std::uint64_t all, std::size_t max_bytes,
                       page_output& out) {
  bounded_list list{out, max_bytes};
  for (const difference& one : found) {
    std::string line = difference_line(one);
    line.pop_back();  // the line feed
    write_entry(list, "<li>", isolated(line), "</li>\n");
  }
  write(out, more_items(all, list, "morvane diff"));
}

std::string left_out(const morvane_view& view) {
  if (view.sound_dvis <= max_pictured) {
    return {};
  }
  const std::uint32_t dvis = view.sound_dvis - max_pictured;
  return joined("<p class=\"dim\">", counted(dvis, "DVI"), dvis == 1 ? " is" : " are",
                " left out here; the tables show all.</p>\n");
}

}  // namespace morvane::cli

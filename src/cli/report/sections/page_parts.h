// Parts that several pictures and tables of a page have in common.
#pragma once

#include <morvane/package_view.h>

#include <algorithm>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "cli/output/printable_text.h"
#include "cli/report/html/html_text.h"
#include "cli/report/html/page_output.h"
#include "cli/report/model/folded_axis.h"
#include "cli/report/model/network_flow.h"
#include "cli/report/model/package_changes.h"
#include "cli/report/model/page_limits.h"

namespace morvane::cli {

/// Rows that a list shows in their whole height. A longer one scrolls.
inline constexpr std::uint32_t max_unscrolled = 30;

/// Begins a section with its heading; `</section>` ends it. The id is that of a link to it.
std::string section_begin(std::string_view id, std::string_view heading);

/// Begins a table of a class with the heads of its columns.
std::string table_begin(std::string_view kind, std::initializer_list<std::string_view> columns);

/// Ends it.
inline constexpr std::string_view table_end = "</tbody></table>\n";

/// Begins a stretch of the page that scrolls; `</div>` ends it.
std::string scrolling_begin(std::string_view label);

/// An entry of a list of facts.
std::string fact(std::string_view name, std::string_view value);

/// "DVI 3", a link to its tables.
std::string dvi_link(std::uint32_t position);

/// The texts of some items with commas between them; of many only the first, and how many more
/// there are.
template <class Items, class Function>
std::string listed(const Items& items, std::size_t most, Function text_of) {
  std::string text;
  for (const auto& item : std::span(items).first(std::min(most, items.size()))) {
    append_pieces(text, text.empty() ? "" : ", ", text_of(item));
  }
  return items.size() > most ? joined(text, " and ", items.size() - most, " more") : text;
}

/// The same of the DVI that a connection leads to.
std::string fed_dvi_link(const connection& one);

/// A name from a package, on its own in the direction of the text.
std::string isolated(std::string_view name);

/// The same in a picture: a long name is shortened, as the tables have all of it.
std::string pictured_name(std::string_view name, std::size_t max_characters = 48);

/// A DVI in a picture: its link, its name and whether it is new or changed.
std::string pictured_dvi(const package_changes* changes, const morvane_view_dvi& dvi,
                         std::size_t max_characters = 48);

/// The dims of a port in the order in which the page tells them.
inline constexpr std::string_view dims_letters =
    "P\xC3\x97"
    "D\xC3\x97H\xC3\x97W";

/// Those of a port: "1×64×13×5".
std::string port_dims(const morvane_view_port& port);

/// "new", "changed" or nothing.
std::string_view word_of(change_mark mark);

/// The same as a label.
std::string label_of(change_mark mark);

/// The mark of a DVI, none when there is nothing to compare with.
change_mark mark_of_dvi(const package_changes* changes, std::uint32_t position);

/// Writes the items of a list of differences, of which all are so many, and how many more there
/// are.
void write_differences(std::span<const difference> found, std::uint64_t all, std::size_t max_bytes,
                       page_output& out);

/// "and 5 more, which `morvane diff` tells", the last item of a list, for what has no room in it.
std::string more_items(std::uint64_t all, const bounded_list& list, std::string_view command);

/// A rectangle of a picture with the pieces of its title. The kind is its class; it begins so many
/// pixels below the top.
template <class... Pieces>
std::string titled_bar(std::string_view kind, const axis_bar& bar, std::uint32_t top,
                       std::uint32_t height, const Pieces&... title) {
  return joined("<rect class=\"", kind, "\" x=\"", percent(bar.place), "\" y=\"", top,
                "\" width=\"", percent(bar.width), "\" height=\"", height, "\"><title>", title...,
                "</title></rect>");
}

/// Tells how many of all DVIs a picture leaves out, if any.
std::string left_out(const morvane_view& view);

/// Writes a list with rows of bars, one for each DVI of the picture. A long one scrolls.
template <class Function>
void write_bars(const morvane_view& view, std::string_view label, page_output& out,
                Function write_rows) {
  const bool is_long = view.sound_dvis > max_unscrolled;
  write(out, is_long ? scrolling_begin(label) : "", "<ol class=\"bars\">\n");
  write_rows();
  write(out, "</ol>\n", is_long ? "</div>\n" : "", left_out(view));
}

}  // namespace morvane::cli

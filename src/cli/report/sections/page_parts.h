// Parts that several pictures and tables of a page have in common.
#pragma once

#include <morvane/package_view.h>

#include <span>
#include <string_view>

#include "cli/report/html/html_text.h"
#include "cli/report/html/page_output.h"
#include "cli/report/model/folded_axis.h"
#include "cli/report/model/package_changes.h"
#include "cli/report/model/page_limits.h"

namespace morvane::cli {

/// Rows that a list shows in their whole height. A longer one scrolls.
inline constexpr std::uint32_t max_unscrolled = 30;

/// "DVI 3", a link to its tables.
struct dvi_link {
  std::uint32_t position;
};
void append_piece(std::string& page, dvi_link piece);

/// A name from a package, on its own in the direction of the text.
struct isolated {
  std::string_view name;
};
void append_piece(std::string& page, const isolated& piece);

/// The same in a picture: a long name is shortened, as the tables have all of it.
struct pictured_name {
  std::string_view name;
};
void append_piece(std::string& page, const pictured_name& piece);

/// The dims of a port: "1×64×13×5".
struct port_dims {
  const morvane_view_port& port;
};
void append_piece(std::string& page, port_dims piece);

/// "new", "changed" or nothing.
std::string_view word_of(change_mark mark);

/// The same as a label.
void append_piece(std::string& page, change_mark mark);

/// The mark of a DVI, none when there is nothing to compare with.
change_mark mark_of_dvi(const package_changes* changes, std::uint32_t position);

/// Writes the items of a list of differences, of which all are so many, and how many more there
/// are.
void write_differences(std::span<const difference> found, std::uint64_t all, std::size_t max_bytes,
                       page_output& out);

/// "and 5 more, which `morvane diff` tells", the last item of a list of which some are shown.
struct more_items {
  std::uint64_t all;
  std::uint64_t shown;
  std::string_view command;
};
void append_piece(std::string& page, const more_items& piece);

/// " and 5 more" after the links that have room, nothing when all have.
struct more_links {
  std::size_t all;
};
void append_piece(std::string& page, more_links piece);

/// A rectangle of a picture, open: its title follows, and then `</rect>`.
struct bar_begin {
  std::string_view kind;  // its class
  axis_bar bar;
  std::uint32_t top;  // px
  std::uint32_t height;
};
void append_piece(std::string& page, const bar_begin& piece);

/// Tells how many of all DVIs a picture leaves out, if any.
struct left_out {
  std::uint32_t dvis;
};
void append_piece(std::string& page, left_out piece);

}  // namespace morvane::cli

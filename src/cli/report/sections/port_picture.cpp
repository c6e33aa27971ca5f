#include <algorithm>
#include <iterator>

#include "cli/package/package_walk.h"
#include "cli/report/sections/page_parts.h"
#include "cli/report/sections/sections.h"

namespace morvane::cli {

namespace {

/// The bytes that the ports use, of each DVI that the picture shows.
using ranges_of_dvis = std::vector<std::vector<used_range>>;

ranges_of_dvis find_ranges(const morvane_view& view) {
  ranges_of_dvis ranges;
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    if (dvi.position < max_pictured) {
      ranges.push_back(port_ranges(view, dvi));
    }
  });
  return ranges;
}

folded_axis axis_of(const ranges_of_dvis& ranges) {
  std::vector<used_range> all;
  for (const std::vector<used_range>& of_dvi : ranges) {
    all.insert(all.end(), of_dvi.begin(), of_dvi.end());
  }
  return fold_axis(std::move(all));
}

/// The bytes that two ports share, each stretch of them once.
std::vector<used_range> shared_bytes(const std::vector<overlap>& overlaps) {
  std::vector<used_range> parts;
  std::ranges::transform(overlaps, std::back_inserter(parts), shared_part);
  return merged(std::move(parts));
}

/// Inputs are above, outputs below, and between them is what two ports share.
void write_ports(const morvane_view_dvi& dvi, const std::vector<used_range>& ranges,
                 const folded_axis& axis, const std::vector<overlap>& overlaps, page_output& out) {
  write(out, "<svg class=\"ports\" role=\"img\"><title>Ports of DVI ", dvi.position, "</title>");
  for (const used_range& range : ranges) {
    if (range.begin == range.end) {
      continue;
    }
    const record_name name = port_name_at(dvi, range.owner);
    const bool is_input = name.kind == object_kind::input;
    write(out, titled_bar(is_input ? "in" : "out", bar_of(axis, range), is_input ? 0 : 13, 9,
                          name_in_dvi(name), ", ", rounded_size(range.end - range.begin), " at ",
                          hexadecimal(range.begin)));
  }
  for (const used_range& range : shared_bytes(overlaps)) {
    write(out, titled_bar("shared", bar_of(axis, range), 9, 4, "shared bytes"));
  }
  write(out, "</svg>");
}

/// "input 0 and output 1 share bytes", of many pairs only the first.
void write_overlaps(const morvane_view_dvi& dvi, const std::vector<overlap>& overlaps,
                    page_output& out) {
  constexpr std::size_t max_pairs = 3;
  if (overlaps.empty()) {
    return;
  }
  const auto first = std::span(overlaps).first(std::min(overlaps.size(), max_pairs));
  write(out, " <b class=\"bad\">",
        listed(first, max_pairs,
               [&](const overlap& both) {
                 return joined(name_in_dvi(port_name_at(dvi, both.one.owner)), " and ",
                               name_in_dvi(port_name_at(dvi, both.other.owner)));
               }),
        " share bytes");
  if (overlaps.size() > max_pairs) {
    write(out, ", and ", overlaps.size() - max_pairs, " more");
  }
  write(out, "</b>");
}

void write_row(const page_content& content, const morvane_view_dvi& dvi,
               const std::vector<used_range>& ranges, const folded_axis& axis, page_output& out) {
  const std::vector<overlap> overlaps = find_overlaps(ranges);
  write(out, "<li><div>", pictured_dvi(content.changes, dvi));
  if (!ranges.empty()) {
    const std::uint64_t first = std::ranges::min(ranges, {}, &used_range::begin).begin;
    const std::uint64_t end = std::ranges::max(ranges, {}, &used_range::end).end;
    write(out, " <span class=\"mono\">", hexadecimal(first), " to ",
          hexadecimal(std::max(end, first + 1) - 1), "</span>");
  }
  write(out, " <span>", counted(dvi.input_num, "input"), ", ", counted(dvi.output_num, "output"),
        "</span>");
  write_overlaps(dvi, overlaps, out);
  write(out, "</div>");
  write_ports(dvi, ranges, axis, overlaps, out);
  write(out, "</li>\n");
}

}  // namespace

void write_port_bytes(const page_content& content, page_output& out) {
  const morvane_view& view = content.package.view;
  const ranges_of_dvis ranges = find_ranges(view);
  const folded_axis axis = axis_of(ranges);
  write(out, section_begin("ports", "Bytes of the ports"));
  if (axis.stretches.empty()) {
    write(out, "<p>There is no port to show.</p>\n</section>\n");
    return;
  }
  write(out,
        "<p>Ports by <code>port_byte_offset</code>, on one axis for all DVIs: "
        "<span class=\"key in\"></span> inputs above, <span class=\"key out\"></span> outputs "
        "below, <span class=\"key shared\"></span> bytes that two ports of a DVI share. What "
        "is at the same place in two rows uses the same bytes one after the other.</p>\n");
  write_bars(view, "Ports by offset", out, [&] {
    for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
      if (dvi.position < max_pictured) {
        write_row(content, dvi, ranges[dvi.position], axis, out);
      }
    });
  });
  write(out, "</section>\n");
}

}  // namespace morvane::cli

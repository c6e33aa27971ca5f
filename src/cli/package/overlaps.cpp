#include "cli/package/overlaps.h"

#include <algorithm>
#include <tuple>

#include "cli/output/printable_text.h"
#include "cli/package/package_walk.h"

namespace morvane::cli {

std::string range_text(const used_range& range) {
  return joined(count_of(range.end - range.begin, "byte"), " from ", hexadecimal(range.begin),
                " on");
}

used_range image_range(const morvane_view_dvi& dvi) {
  return image_range(dvi.position, dvi.dvi_img_vaddr, dvi.dvi_img_size);
}

std::vector<used_range> port_ranges(const morvane_view& view, const morvane_view_dvi& dvi) {
  std::vector<used_range> ranges;
  for_each_port(view, dvi, [&](const morvane_view_port& port, const record_name& /*name*/) {
    const std::uint64_t begin = port.port_byte_offset;
    ranges.push_back({.owner = static_cast<std::uint32_t>(ranges.size()),
                      .begin = begin,
                      .end = begin + port.port_size});
  });
  return ranges;
}

std::vector<used_range> merged(std::vector<used_range> ranges) {
  std::erase_if(ranges, [](const used_range& range) { return range.begin >= range.end; });
  std::ranges::sort(ranges, {}, &used_range::begin);
  std::vector<used_range> stretches;
  for (const used_range& range : ranges) {
    if (stretches.empty() || range.begin > stretches.back().end) {
      stretches.push_back({.begin = range.begin, .end = range.end});
    } else {
      stretches.back().end = std::max(stretches.back().end, range.end);
    }
  }
  return stretches;
}

used_range shared_part(const overlap& both) {
  return {.begin = std::max(both.one.begin, both.other.begin),
          .end = std::min(both.one.end, both.other.end)};
}

std::vector<overlap> find_overlaps(std::vector<used_range> ranges) {
  std::erase_if(ranges, [](const used_range& range) { return range.begin >= range.end; });
  std::ranges::sort(ranges, {},
                    [](const used_range& range) { return std::tuple(range.begin, range.owner); });
  std::vector<overlap> found;
  used_range furthest{};  // the range that ends last among those that were met
  for (const used_range& range : ranges) {
    if (range.begin < furthest.end) {
      const bool in_order = furthest.owner < range.owner;
      found.push_back(in_order ? overlap{furthest, range} : overlap{range, furthest});
    }
    if (range.end > furthest.end) {
      furthest = range;
    }
  }
  std::ranges::sort(
      found, {}, [](const overlap& both) { return std::tuple(both.other.owner, both.one.owner); });
  return found;
}

}  // namespace morvane::cli

#include "cli/report/model/folded_axis.h"

#include <algorithm>

namespace morvane::cli {

namespace {

/// A gap is folded when it is longer than this part of the used bytes.
constexpr std::uint64_t folded_part = 8;

/// Joins ranges over short gaps, and puts the other gaps between them.
std::vector<axis_stretch> with_gaps(const std::vector<used_range>& used) {
  std::uint64_t bytes = 0;
  for (const used_range& range : used) {
    bytes += range.end - range.begin;
  }
  std::vector<axis_stretch> stretches;
  for (const auto& [owner, begin, end] : used) {
    const std::uint64_t gap_begin = stretches.empty() ? begin : stretches.back().end;
    if (!stretches.empty() && begin - gap_begin <= bytes / folded_part) {
      stretches.back().end = end;
      continue;
    }
    if (!stretches.empty()) {
      stretches.push_back({.begin = gap_begin, .end = begin, .is_gap = true});
    }
    stretches.push_back({.begin = begin, .end = end});
  }
  return stretches;
}

/// Gives every stretch its place and width.
void lay_out(std::vector<axis_stretch>& stretches) {
  constexpr std::uint64_t widest_gap = 400;
  constexpr std::uint64_t max_of_gaps = whole_axis / 4;
  const auto gaps = static_cast<std::uint64_t>(
      std::ranges::count_if(stretches, [](const axis_stretch& one) { return one.is_gap; }));
  const std::uint64_t gap_width = gaps == 0 ? 0 : std::min(widest_gap, max_of_gaps / gaps);
  const std::uint64_t scaled_width = whole_axis - gaps * gap_width;
  std::uint64_t bytes = 0;
  for (const axis_stretch& stretch : stretches) {
    bytes += stretch.is_gap ? 0 : stretch.end - stretch.begin;
  }
  std::uint64_t done = 0;
  std::uint64_t gaps_before = 0;
  for (axis_stretch& stretch : stretches) {
    stretch.place = gaps_before * gap_width + done * scaled_width / bytes;
    done += stretch.is_gap ? 0 : stretch.end - stretch.begin;
    gaps_before += stretch.is_gap ? 1 : 0;
    stretch.width = gaps_before * gap_width + done * scaled_width / bytes - stretch.place;
  }
}

}  // namespace

folded_axis fold_axis(std::vector<used_range> ranges) {
  folded_axis axis{with_gaps(merged(std::move(ranges)))};
  lay_out(axis.stretches);
  return axis;
}

std::uint64_t place_of(const folded_axis& axis, std::uint64_t address) {
  const auto after = std::ranges::upper_bound(axis.stretches, address, {}, &axis_stretch::begin);
  if (after == axis.stretches.begin()) {
    return 0;
  }
  const axis_stretch& stretch = *std::prev(after);
  const std::uint64_t reached = std::min(address, stretch.end) - stretch.begin;
  return stretch.place + reached * stretch.width / (stretch.end - stretch.begin);
}

axis_bar bar_of(const folded_axis& axis, const used_range& range) {
  constexpr std::uint64_t min_width = 40;
  const std::uint64_t place = place_of(axis, range.begin);
  const std::uint64_t width = std::max(place_of(axis, range.end) - place, min_width);
  return {.place = std::min(place, whole_axis - width), .width = width};
}

std::vector<std::uint64_t> visible_widths(const std::vector<std::uint64_t>& sizes) {
  constexpr std::uint64_t usual_least = 120;
  const std::uint64_t least =
      std::min(usual_least, whole_axis / 2 / std::max<std::uint64_t>(sizes.size(), 1));
  std::vector<bool> is_small(sizes.size(), false);
  std::uint64_t bytes = 0;
  std::uint64_t width = whole_axis;
  for (bool is_found = true; is_found;) {
    is_found = false;
    bytes = 0;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
      bytes += is_small[i] ? 0 : sizes[i];
    }
    for (std::size_t i = 0; i < sizes.size(); ++i) {
      if (!is_small[i] && sizes[i] * width < least * bytes) {
        is_small[i] = is_found = true;
        bytes -= sizes[i];
        width -= least;
      }
    }
  }
  std::vector<std::uint64_t> widths(sizes.size(), least);
  std::uint64_t done = 0;
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    if (!is_small[i] && bytes != 0) {
      widths[i] = (done + sizes[i]) * width / bytes - done * width / bytes;
      done += sizes[i];
    }
  }
  return widths;
}

}  // namespace morvane::cli

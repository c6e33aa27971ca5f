// An axis of addresses or offsets on which long gaps are folded.
#pragma once

#include <cstdint>
#include <vector>

#include "cli/package/overlaps.h"

namespace morvane::cli {

/// Places on an axis, and widths of bars, are hundredths of a percent of its width.
inline constexpr std::uint64_t whole_axis = 10000;

/// A stretch of the axis: used bytes with short gaps, or one folded gap.
struct axis_stretch {
  std::uint64_t begin = 0;  // address
  std::uint64_t end = 0;
  std::uint64_t place = 0;
  std::uint64_t width = 0;
  bool is_gap = false;
};

struct folded_axis {
  std::vector<axis_stretch> stretches;  // one after the other; none when nothing is used
};

/// The axis from the first used byte to the last one. Used bytes are to scale; a gap that is long
/// beside them gets a small width instead.
folded_axis fold_axis(std::vector<used_range> ranges);

/// A bar on an axis.
struct axis_bar {
  std::uint64_t place = 0;
  std::uint64_t width = 0;
};

/// Where an address is on the axis.
std::uint64_t place_of(const folded_axis& axis, std::uint64_t address);

/// The bar of a range. It is wide enough to be seen.
axis_bar bar_of(const folded_axis& axis, const used_range& range);

/// Widths for sizes, in sum the whole axis. A small size gets a least width and the others share
/// the rest to scale.
std::vector<std::uint64_t> visible_widths(const std::vector<std::uint64_t>& sizes);

}  // namespace morvane::cli

#include "cli/report/sections/wiring.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

constexpr std::uint32_t wire_colours = 6;

// Tenths of a pixel from left to right, hundredths of a row from top to bottom. A row may be as
// high as its text needs, so the picture is stretched to it.
constexpr std::uint32_t narrow_width = 560;
constexpr std::uint32_t wide_width = 1120;
constexpr std::uint32_t narrow_tracks = 3;
constexpr std::uint32_t arrow_width = 180;
constexpr std::uint32_t input_height = 42;
constexpr std::uint32_t output_height = 62;

std::uint32_t wiring_width(const wiring& plan) {
  return plan.tracks <= narrow_tracks ? narrow_width : wide_width;
}

std::uint32_t place_of(const wiring& plan, const wire& one) {
  constexpr std::uint32_t widest_pitch = 110;
  const std::uint32_t room = wiring_width(plan) - arrow_width - 30;
  const std::uint32_t pitch = std::min(widest_pitch, room / std::max(plan.tracks, 1U));
  return wiring_width(plan) - arrow_width - one.track * pitch;
}

/// A line with the tip of an arrow at its end.
void append_arrow(std::string& page, std::uint32_t from, std::uint32_t tip, std::uint32_t height) {
  const std::uint32_t behind = from < tip ? tip - 55 : tip + 55;
  append_pieces(page, "M", from, " ", height, "H", tip, "M", behind, " ", height - 11, "L", tip,
                " ", height, "L", behind, " ", height + 11);
}

void append_path(std::string& page, std::string_view kind, std::string_view lines) {
  if (!lines.empty()) {
    append_pieces(page, "<path class=\"", kind, "\" vector-effect=\"non-scaling-stroke\" d=\"",
                  lines, "\"/>");
  }
}

/// The lines of one row: of each colour, and of ends at which the ports differ.
struct row_lines {
  std::array<std::string, wire_colours> wires{};
  std::string differing{};
};

void add_wire(row_lines& lines, const wiring& plan, std::uint32_t number, std::uint32_t row) {
  const wire& one = plan.wires[number];
  std::string& line = lines.wires.at(number % wire_colours);
  const std::uint32_t x = place_of(plan, one);
  const std::uint32_t width = wiring_width(plan);
  const bool is_last = one.ends.back().row == row;
  if (one.begin == row) {
    append_pieces(line, "M", width, " ", output_height, "H", x, "V102");
  } else {
    append_pieces(line, "M", x, " -2V", is_last ? input_height : 102);
  }
  const auto end = std::ranges::find(one.ends, row, &wire_end::row);
  if (end != one.ends.end()) {
    append_arrow(end->differs ? lines.differing : line, x, width - 10, input_height);
  }
}

}  // namespace

std::uint32_t assign_tracks(std::vector<wire>& wires, std::uint32_t rows) {
  std::vector<std::size_t> order(wires.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, {}, [&](std::size_t number) {
    return wires[number].ends.back().row - wires[number].begin;
  });
  std::vector<std::vector<bool>> tracks;
  for (const std::size_t number : order) {
    wire& one = wires[number];
    const auto end = one.ends.back().row;  // in which another wire may begin
    auto track = std::ranges::find_if(tracks, [&](const std::vector<bool>& rows_in_use) {
      const auto last = rows_in_use.begin() + end;
      return std::find(rows_in_use.begin() + one.begin, last, true) == last;
    });
    if (track == tracks.end() && tracks.size() == max_tracks) {
      continue;
    }
    if (track == tracks.end()) {
      track = tracks.emplace(track, rows, false);
    }
    std::fill(track->begin() + one.begin, track->begin() + end, true);
    one.track = static_cast<std::uint32_t>(track - tracks.begin());
  }
  return static_cast<std::uint32_t>(tracks.size());
}

wiring lay_wires(std::vector<wire> wires, std::uint32_t rows) {
  wiring plan{.wires = std::move(wires)};
  plan.tracks = assign_tracks(plan.wires, rows);
  plan.at_row.resize(rows);
  for (std::uint32_t number = 0; number < plan.wires.size(); ++number) {
    const wire& one = plan.wires[number];
    for (std::uint32_t row = one.begin; one.track != wire::no_track && row <= one.ends.back().row;
         ++row) {
      plan.at_row[row].push_back(number);
    }
  }
  return plan;
}

std::string_view width_class(const wiring& plan) {
  return plan.tracks <= narrow_tracks ? "narrow" : "wide";
}

void append_wires(std::string& page, const wiring& plan, std::uint32_t row,
                  const outside_ports& outside) {
  const std::uint32_t width = wiring_width(plan);
  row_lines lines;
  for (const std::uint32_t number : plan.at_row[row]) {
    add_wire(lines, plan, number, row);
  }
  const std::uint32_t outside_end = width - arrow_width + 40;
  std::string outer;
  if (outside.has_inputs) {
    append_arrow(outer, outside_end, width - 10, input_height);
  }
  if (outside.has_outputs) {
    append_arrow(outer, width, outside_end, output_height);
  }
  append_pieces(page, "<svg viewBox=\"0 0 ", width,
                " 100\" preserveAspectRatio=\"none\" aria-hidden=\"true\">");
  for (std::uint32_t colour = 0; colour < wire_colours; ++colour) {
    append_path(page, joined("c", colour), lines.wires.at(colour));
  }
  append_path(page, "differs", lines.differing);
  append_path(page, "outer", outer);
  page += "</svg>";
}

}  // namespace morvane::cli

#include "cli/report/sections/wiring.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "cli/report/html/html_text.h"

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

void append_arrow(std::string& page, std::uint32_t from, std::uint32_t width) {
  const std::uint32_t tip = width - 10;
  append_pieces(page, "M", from, " ", input_height, "H", tip, "M", tip - 55, " ", input_height - 11,
                "L", tip, " ", input_height, "L", tip - 55, " ", input_height + 11);
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
    append_arrow(end->differs ? lines.differing : line, x, width);
  }
}

/// Whether a stretch of rows is free on a track. The wire before may end in the first row.
bool is_free(const std::vector<std::vector<bool>>& tracks, std::uint32_t track, const wire& one) {
  const std::vector<bool>& rows = tracks[track];
  const auto begin = rows.begin() + one.begin;
  return std::find(begin, rows.begin() + one.ends.back().row, true) ==
         rows.begin() + one.ends.back().row;
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
    std::uint32_t track = 0;
    while (track < tracks.size() && !is_free(tracks, track, one)) {
      ++track;
    }
    if (track == max_tracks) {
      continue;
    }
    if (track == tracks.size()) {
      tracks.emplace_back(rows, false);
    }
    std::fill(tracks[track].begin() + one.begin, tracks[track].begin() + one.ends.back().row, true);
    one.track = track;
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
  std::string outer;
  if (outside.has_inputs) {
    append_arrow(outer, width - arrow_width + 40, width);
  }
  if (outside.has_outputs) {
    const std::uint32_t tip = width - arrow_width + 40;
    append_pieces(outer, "M", width, " ", output_height, "H", tip, "M", tip + 55, " ",
                  output_height - 11, "L", tip, " ", output_height, "L", tip + 55, " ",
                  output_height + 11);
  }
  append_pieces(page, "<svg viewBox=\"0 0 ", width,
                " 100\" preserveAspectRatio=\"none\" aria-hidden=\"true\">");
  for (std::uint32_t colour = 0; colour < wire_colours; ++colour) {
    constexpr std::array<std::string_view, wire_colours> classes{"c0", "c1", "c2",
                                                                 "c3", "c4", "c5"};
    append_path(page, classes.at(colour), lines.wires.at(colour));
  }
  append_path(page, "differs", lines.differing);
  append_path(page, "outer", outer);
  page += "</svg>";
}

}  // namespace morvane::cli

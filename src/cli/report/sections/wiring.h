// Where the wires of a network run: each has a track of its own beside the rows that it passes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace morvane::cli {

/// Where a wire ends.
struct wire_end {
  std::uint32_t row;
  bool differs;  // the input is not as the output that feeds it
};

/// A wire from a row to rows below it.
struct wire {
  static constexpr std::uint32_t no_track = UINT32_MAX;

  std::uint32_t begin = 0;       // row
  std::vector<wire_end> ends{};  // in the order of the rows; never empty
  std::uint32_t track = no_track;
};

/// The tracks that fit beside the rows.
inline constexpr std::uint32_t max_tracks = 40;

/// Gives each wire the track nearest to the rows that is free, short wires first. A wire for which
/// all are in use gets none. Returns the number of tracks.
std::uint32_t assign_tracks(std::vector<wire>& wires, std::uint32_t rows);

/// The wires beside the rows.
struct wiring {
  std::vector<wire> wires{};
  std::uint32_t tracks = 0;
  std::vector<std::vector<std::uint32_t>> at_row{};  // the wires with a track that touch each row
};

/// The wiring of wires beside so many rows.
wiring lay_wires(std::vector<wire> wires, std::uint32_t rows);

/// What comes from the outside into a row, and goes there.
struct outside_ports {
  bool has_inputs = false;
  bool has_outputs = false;
};

/// The class of a list of rows: how wide the space for the wires is.
std::string_view width_class(const wiring& plan);

/// Appends the picture of the wires beside one row.
void append_wires(std::string& page, const wiring& plan, std::uint32_t row,
                  const outside_ports& outside);

}  // namespace morvane::cli

// Where the wires of a network run.
#include <gtest/gtest.h>

#include "cli/report/sections/wiring.h"

namespace morvane::cli {
namespace {

std::vector<std::uint32_t> tracks_of(std::vector<wire> wires, std::uint32_t rows) {
  assign_tracks(wires, rows);
  std::vector<std::uint32_t> tracks;
  for (const wire& one : wires) {
    tracks.push_back(one.track);
  }
  return tracks;
}

wire from_to(std::uint32_t begin, std::uint32_t end) {
  return {.begin = begin, .ends = {{end, false}}};
}

using numbers = std::vector<std::uint32_t>;

TEST(Wiring, GivesAChainOneTrack) {
  EXPECT_EQ(tracks_of({from_to(0, 1), from_to(1, 2), from_to(2, 3)}, 4), (numbers{0, 0, 0}));
}

TEST(Wiring, PutsLongWiresOutside) {
  EXPECT_EQ(tracks_of({from_to(0, 5), from_to(0, 1), from_to(1, 4), from_to(2, 3)}, 6),
            (numbers{2, 0, 1, 0}));
}

TEST(Wiring, LeavesOutAWireForWhichThereIsNoRoom) {
  std::vector<wire> wires(max_tracks, from_to(0, 1));
  wires.push_back(from_to(0, 2));
  const numbers tracks = tracks_of(wires, 3);
  EXPECT_EQ(tracks.front(), 0U);
  EXPECT_EQ(tracks[max_tracks - 1], max_tracks - 1);
  EXPECT_EQ(tracks.back(), wire::no_track);
}

std::string drawn(const wiring& plan, std::uint32_t row, const outside_ports& outside = {}) {
  std::string page;
  append_wires(page, plan, row, outside);
  return page;
}

TEST(Wiring, DrawsAWireFromItsRowToEachOfItsEnds) {
  const wiring plan = lay_wires({{.begin = 0, .ends = {{1, false}, {3, true}}}}, 4);
  const std::string begin =
      R"(<svg viewBox="0 0 560 100" preserveAspectRatio="none" aria-hidden="true">)";
  EXPECT_EQ(
      drawn(plan, 0),
      begin + R"(<path class="c0" vector-effect="non-scaling-stroke" d="M560 62H380V102"/></svg>)");
  EXPECT_EQ(
      drawn(plan, 1),
      begin +
          R"(<path class="c0" vector-effect="non-scaling-stroke" d="M380 -2V102M380 42H550M495 31L550 42L495 53"/></svg>)");
  EXPECT_EQ(
      drawn(plan, 2),
      begin + R"(<path class="c0" vector-effect="non-scaling-stroke" d="M380 -2V102"/></svg>)");
  EXPECT_EQ(
      drawn(plan, 3),
      begin +
          R"(<path class="c0" vector-effect="non-scaling-stroke" d="M380 -2V42"/>)"
          R"(<path class="differs" vector-effect="non-scaling-stroke" d="M380 42H550M495 31L550 42L495 53"/></svg>)");
}

TEST(Wiring, DrawsWhatComesFromOutsideAndGoesThere) {
  const wiring plan = lay_wires({}, 1);
  EXPECT_EQ(
      drawn(plan, 0, {.has_inputs = true, .has_outputs = true}),
      R"(<svg viewBox="0 0 560 100" preserveAspectRatio="none" aria-hidden="true">)"
      R"(<path class="outer" vector-effect="non-scaling-stroke" d="M420 42H550M495 31L550 42L495 53)"
      R"(M560 62H420M475 51L420 62L475 73"/></svg>)");
}

TEST(Wiring, TakesMoreRoomForManyTracks) {
  EXPECT_EQ(width_class(lay_wires({from_to(0, 1)}, 2)), "narrow");
  EXPECT_EQ(width_class(lay_wires(std::vector<wire>(4, from_to(0, 1)), 2)), "wide");
}

}  // namespace
}  // namespace morvane::cli

#include "cli/wiring/image_overlaps.h"

#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

/// Whether an overlap is meant: images that are loaded in turn, or none that has an address.
bool is_meant(const overlap& both) {
  const bool is_same = both.one.begin == both.other.begin && both.one.end == both.other.end;
  return is_same || (both.one.begin == 0 && both.other.begin == 0);
}

}  // namespace

void find_image_overlaps(wiring_run& run, bool with_notes) {
  const wired_network& network = run.network;
  std::vector<used_range> ranges;
  std::vector<finding_place> places(network.doubted.size());
  for (const wired_image& image : network.images) {
    ranges.push_back(image.range);
    places[image.range.owner] = image.place;
  }
  const std::vector<overlap> overlaps = find_overlaps(std::move(ranges));
  disjoint_sets together(network.doubted.size());
  for (const overlap& both : overlaps) {
    if (!is_meant(both)) {
      together.join(both.one.owner, both.other.owner);
    }
  }
  for (const overlap& both : overlaps) {
    const std::uint32_t dvi = both.other.owner;
    if (network.doubted[dvi] || network.doubted[both.one.owner] ||
        (is_meant(both) && !with_notes)) {
      continue;
    }
    const bool is_note = is_meant(both);
    run.found.push_back(
        {{.kind = is_note ? kind_of("images-overlap") : kind_of("images-overlap-partly"),
          .dvi = dvi,
          .place = places[dvi],
          .text = joined(run.labels.image_here(dvi), ", ", range_text(both.other),
                         is_note ? ", shares addresses with " : ", shares some addresses with ",
                         run.labels.image_there(both.one.owner), ", ", range_text(both.one))},
         {is_note ? cause_kind::image : cause_kind::images, is_note ? dvi : together.find(dvi)}});
  }
}

}  // namespace morvane::cli

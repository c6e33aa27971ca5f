#include "cli/check/network_rules.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "cli/package/overlaps.h"
#include "cli/package/package_walk.h"
#include "cli/wiring/wiring_rules.h"

namespace morvane::cli {

namespace {

/// A finding without its rest.
finding finding_of(wired_finding& found) {
  return {.kind = found.kind, .file = {}, .place = found.place, .text = std::move(found.text)};
}

}  // namespace

wired_network empty_network(const morvane_view& view) {
  wired_network network{.is_whole = view.sound_dvis == view.dvi_num};
  std::size_t ports = 0;
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    network.images.push_back(
        {.range = image_range(dvi),
         .place = {.offset = dvi.offset + offsetof(morvane_dvi_desc, dvi_img_vaddr)}});
    network.doubted.push_back(false);
    ports += port_count(dvi);
  });
  network.ports.reserve(ports);
  return network;
}

void check_network(const morvane_view& view, const wired_network& network, bool with_notes,
                   const finding_sink& sink) {
  std::vector<std::string_view> dag_names;  // read for the first finding
  const auto dag_name = [&](std::uint32_t dvi) {
    if (dag_names.empty()) {
      for_each_dvi(view,
                   [&](const morvane_view_dvi& one) { dag_names.push_back(str(one.dag_name)); });
    }
    return dag_names[dvi];
  };
  const auto port_label = [&](const wired_port& port) {
    return str(record_name{.dvi = port.dvi,
                           .kind = port.kind,
                           .index = port.index,
                           .dag = dag_name(port.dvi),
                           .own = port.name});
  };
  const auto image_label = [&](std::uint32_t dvi) {
    return "the image of " + str(record_name{.dvi = dvi, .dag = dag_name(dvi)});
  };
  const wiring_labels labels{.port_here = port_label,
                             .port_there = port_label,
                             .image_here = image_label,
                             .image_there = image_label};
  for (wired_finding& found : find_wiring(network, labels, with_notes)) {
    finding made = finding_of(found);
    for (wired_finding& effect : found.rest) {
      made.rest.push_back(finding_of(effect));
    }
    sink(made);
  }
}

}  // namespace morvane::cli

#include "cli/report/model/network_flow.h"

#include <algorithm>
#include <set>

#include "cli/package/package_walk.h"
#include "cli/package/port_flow.h"

namespace morvane::cli {

namespace {

void connect_input(const morvane_view_port& input, const record_name& name,
                   const known_outputs& outputs, network_flow& flow) {
  const known_output* const source = source_of(input, outputs);
  if (source == nullptr) {
    return;
  }
  connection found{.output = {source->name.dvi, source->name.index},
                   .input = {name.dvi, name.index}};
  std::string differing = flow_differences(flow_of(input), flow_of(source->port));
  if (!differing.empty()) {
    found.mismatch = static_cast<std::uint32_t>(flow.mismatches.size());
    flow.mismatches.push_back(std::move(differing));
  }
  flow.by_input.push_back(found);
}

}  // namespace

network_flow find_flow(const opened_package& package) {
  network_flow flow{.is_whole = package.view.sound_dvis == package.view.dvi_num,
                    .mismatches = {{}}};
  known_outputs outputs;
  for_each_dvi(package.view, [&](const morvane_view_dvi& dvi) {
    for_each_input(package.view, dvi, [&](const morvane_view_port& port, const record_name& name) {
      connect_input(port, name, outputs, flow);
    });
    for_each_output(package.view, dvi, [&](const morvane_view_port& port, const record_name& name) {
      remember_output(port, name, outputs);
    });
  });
  flow.by_output = flow.by_input;
  std::ranges::sort(flow.by_output, {},
                    [](const connection& one) { return std::tuple(one.output, one.input); });
  return flow;
}

void find_lost_inputs(const opened_package& older, const opened_package& package,
                      network_flow& flow) {
  const network_flow older_flow = find_flow(older);
  std::set<std::pair<std::string_view, std::string_view>> fed;  // names of DAGs and of inputs
  for_each_dvi(older.view, [&](const morvane_view_dvi& dvi) {
    for_each_input(older.view, dvi, [&](const morvane_view_port& port, const record_name& name) {
      if (connection_to(older_flow, {name.dvi, name.index}) != nullptr) {
        fed.emplace(str(dvi.dag_name), str(port.port_name));
      }
    });
  });
  for_each_dvi(package.view, [&](const morvane_view_dvi& dvi) {
    for_each_input(package.view, dvi, [&](const morvane_view_port& port, const record_name& name) {
      const port_place place{name.dvi, name.index};
      if (connection_to(flow, place) == nullptr &&
          fed.contains({str(dvi.dag_name), str(port.port_name)})) {
        flow.lost.push_back(place);
      }
    });
  });
}

std::string_view origin_of(const network_flow& flow, port_place input) {
  return std::ranges::binary_search(flow.lost, input)
             ? "from outside <b class=\"bad\">lost its producer</b>"
             : "from outside";
}

std::string_view destination_of(const network_flow& flow) {
  return flow.is_whole ? "outside" : "unknown";
}

const connection* connection_to(const network_flow& flow, port_place input) {
  const auto found = std::ranges::lower_bound(flow.by_input, input, {}, &connection::input);
  return found != flow.by_input.end() && found->input == input ? &*found : nullptr;
}

std::span<const connection> connections_from(const network_flow& flow, port_place output) {
  const auto first = std::ranges::lower_bound(flow.by_output, output, {}, &connection::output);
  const auto last = std::ranges::upper_bound(flow.by_output, output, {}, &connection::output);
  return {first, last};
}

std::span<const connection> connections_from_dvi(const network_flow& flow, std::uint32_t dvi) {
  const auto dvi_of = [](const connection& one) { return one.output.dvi; };
  const auto first = std::ranges::lower_bound(flow.by_output, dvi, {}, dvi_of);
  const auto last = std::ranges::upper_bound(flow.by_output, dvi, {}, dvi_of);
  return {first, last};
}

}  // namespace morvane::cli

#include "cli/report/model/network_flow.h"

#include <algorithm>

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
  network_flow flow{.mismatches = {{}}};
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

const connection* connection_to(const network_flow& flow, port_place input) {
  const auto found = std::ranges::lower_bound(flow.by_input, input, {}, &connection::input);
  return found != flow.by_input.end() && found->input == input ? &*found : nullptr;
}

std::span<const connection> connections_from(const network_flow& flow, port_place output) {
  return std::ranges::equal_range(flow.by_output, output, {}, &connection::output);
}

std::span<const connection> connections_from_dvi(const network_flow& flow, std::uint32_t dvi) {
  return std::ranges::equal_range(flow.by_output, dvi, {},
                                  [](const connection& one) { return one.output.dvi; });
}

}  // namespace morvane::cli

#include "cli/check/block_rules.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "cli/check/record_rules.h"
#include "cli/output/printable_text.h"
#include "cli/package/overlaps.h"
#include "cli/package/package_walk.h"

namespace morvane::cli {

void check_ports(const morvane_view& view, const morvane_view_dvi& dvi, wired_network& network,
                 const finding_sink& sink) {
  for_each_port(view, dvi, [&](const morvane_view_port& port, const record_name& name) {
    check_port(port, name, sink);
    network.ports.push_back({.name = str(port.port_name),
                             .dvi = name.dvi,
                             .index = name.index,
                             .kind = name.kind,
                             .is_bitvector = (port.flags & MORVANE_PORT_BITVECTOR) != 0,
                             .place = {.offset = port.offset},
                             .flow = flow_of(port)});
  });
}

namespace {

/// A port with its name, by its position among the inputs and outputs of its DVI.
record_name port_at(const morvane_view& view, const morvane_view_dvi& dvi, std::uint32_t position) {
  record_name name = port_name_at(dvi, position);
  morvane_view_port port{};
  const bool is_input = name.kind == object_kind::input;
  (is_input ? morvane_view_input : morvane_view_output)(&view, &dvi, name.index, &port);
  name.dag = str(dvi.dag_name);
  name.own = own_name(port);
  return name;
}

}  // namespace

void note_port_overlaps(const morvane_view& view, const morvane_view_dvi& dvi,
                        const finding_sink& sink) {
  const std::vector<overlap> overlaps = find_overlaps(port_ranges(view, dvi));
  for (const auto& [one, other] : overlaps) {
    report(
        sink, kind_of("ports-overlap"),
        dvi.block + other.owner * sizeof(morvane_port_desc) +
            offsetof(morvane_port_desc, port_byte_offset),
        joined(str(port_at(view, dvi, other.owner)), ", ", range_text(other),
               ", shares bytes with ", str(port_at(view, dvi, one.owner)), ", ", range_text(one)));
  }
}

void check_vproc(const morvane_view& view, const morvane_view_dvi& dvi, const finding_sink& sink) {
  for_each_variable(view, dvi, [&](const morvane_view_var& variable, const record_name& name) {
    check_variable(variable, name, sink);
  });
  for_each_smb(view, dvi, [&](const morvane_view_smb_block& smb, const record_name& name) {
    check_smb(smb, name, sink);
  });
}

}  // namespace morvane::cli

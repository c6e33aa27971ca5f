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

namespace {

/// Compares an input with the known output of its name in dims, format, size and offset.
void check_input_flow(const morvane_view_port& input, const record_name& name,
                      const known_outputs& outputs, const finding_sink& sink) {
  const known_output* const output = source_of(input, outputs);
  if (output == nullptr) {
    return;
  }
  const std::string differing = flow_differences(flow_of(input), flow_of(output->port));
  if (!differing.empty()) {
    report(sink, kind_of("port-mismatch"), input.offset,
           joined(str(name), " ", in_quotes(str(input.port_name)), " differs from ",
                  str(output->name), ": ", differing));
  }
}

}  // namespace

void check_ports(const morvane_view& view, const morvane_view_dvi& dvi, known_outputs& outputs,
                 const finding_sink& sink) {
  for_each_input(view, dvi, [&](const morvane_view_port& port, const record_name& name) {
    check_port(port, name, sink);
    check_input_flow(port, name, outputs, sink);
  });
  for_each_output(view, dvi, [&](const morvane_view_port& port, const record_name& name) {
    check_port(port, name, sink);
    remember_output(port, name, outputs);
  });
}

void note_port_overlaps(const morvane_view& view, const morvane_view_dvi& dvi,
                        const finding_sink& sink) {
  const std::vector<overlap> overlaps = find_overlaps(port_ranges(view, dvi));
  for (const auto& [one, other] : overlaps) {
    report(
        sink, kind_of("ports-overlap"),
        dvi.block + other.owner * sizeof(morvane_port_desc) +
            offsetof(morvane_port_desc, port_byte_offset),
        joined(str(port_name_at(dvi, other.owner)), ", ", range_text(other), ", shares bytes with ",
               str(port_name_at(dvi, one.owner)), ", ", range_text(one)));
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

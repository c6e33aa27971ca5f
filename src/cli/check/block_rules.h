// The rules that concern the blocks of the DVIs: ports, variables and SMB blocks.
#pragma once

#include <morvane/package_view.h>

#include "cli/findings/findings.h"
#include "cli/wiring/wired_network.h"

namespace morvane::cli {

/// Checks the ports of a DVI and tells the sink what is wrong. Adds them to the network.
void check_ports(const morvane_view& view, const morvane_view_dvi& dvi, wired_network& network,
                 const finding_sink& sink);

/// Tells the sink which ports of a DVI share bytes.
void note_port_overlaps(const morvane_view& view, const morvane_view_dvi& dvi,
                        const finding_sink& sink);

/// Checks the variables and SMB blocks of a DVI and tells the sink what is wrong.
void check_vproc(const morvane_view& view, const morvane_view_dvi& dvi, const finding_sink& sink);

}  // namespace morvane::cli

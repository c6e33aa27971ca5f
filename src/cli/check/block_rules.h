// The rules that concern the blocks of the DVIs: ports, variables and SMB blocks.
#pragma once

#include <morvane/package_view.h>

#include "cli/findings/findings.h"
#include "cli/package/port_flow.h"

namespace morvane::cli {

/// Checks the ports of a DVI, the inputs also against the outputs of the DVIs before it, to which
/// its own are added. Tells the sink what is wrong.
void check_ports(const morvane_view& view, const morvane_view_dvi& dvi, known_outputs& outputs,
                 const finding_sink& sink);

/// Tells the sink which ports of a DVI share bytes.
void note_port_overlaps(const morvane_view& view, const morvane_view_dvi& dvi,
                        const finding_sink& sink);

/// Checks the variables and SMB blocks of a DVI and tells the sink what is wrong.
void check_vproc(const morvane_view& view, const morvane_view_dvi& dvi, const finding_sink& sink);

}  // namespace morvane::cli

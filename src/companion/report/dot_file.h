// The network as a Graphviz file.
#pragma once

#include "companion/report/network_flow.h"
#include "companion/report/page_output.h"

namespace morvane::companion {

/// Writes a node for each DVI and for what comes from and goes outside, and an edge for each
/// connection.
void write_dot(const opened_package& package, const network_flow& flow, page_output& out);

}  // namespace morvane::companion

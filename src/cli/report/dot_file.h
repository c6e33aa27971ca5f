// The network as a Graphviz file.
#pragma once

#include "cli/report/html/page_output.h"
#include "cli/report/model/network_flow.h"

namespace morvane::cli {

/// Writes a node for each DVI and for what comes from and goes outside, and an edge for each
/// connection.
void write_dot(const opened_package& package, const network_flow& flow, page_output& out);

}  // namespace morvane::cli

// The network: DVIs in the order of the package, and what each hands on to which.
#pragma once

#include "cli/report/html/page_output.h"
#include "cli/report/model/page_content.h"

namespace morvane::cli {

/// Writes the network with a row for each port; of a network of many ports or DVIs, with a row for
/// each DVI.
void write_network(const page_content& content, page_output& out);

}  // namespace morvane::cli

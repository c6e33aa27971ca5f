// The network: DVIs in the order of the package, and what each hands on to which.
#pragma once

#include "companion/report/page_content.h"
#include "companion/report/page_output.h"

namespace morvane::companion {

/// Writes the network with a row for each port; of a network of many ports or DVIs, with a row for
/// each DVI.
void write_network(const page_content& content, page_output& out);

}  // namespace morvane::companion

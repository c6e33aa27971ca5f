// The rules that concern a package's DVIs together.
#pragma once

#include <morvane/package_view.h>

#include "cli/findings/findings.h"
#include "cli/wiring/wired_network.h"

namespace morvane::cli {

/// The network of a package, with the images, but without the ports.
wired_network empty_network(const morvane_view& view);

/// Checks what the DVIs have to do with each other and tells the sink what is wrong.
void check_network(const morvane_view& view, const wired_network& network, bool with_notes,
                   const finding_sink& sink);

}  // namespace morvane::cli

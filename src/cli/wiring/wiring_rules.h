// What the DVIs of a network have to do with each other, and what in it is probably not meant.
#pragma once

#include <cstdint>
#include <vector>

#include "cli/wiring/wired_network.h"

namespace morvane::cli {

/// Finds what is not meant in the ports and images of a network, in the order of the DVIs. What has
/// the same cause is one finding with a rest. Takes time and memory like a sort of the ports.
std::vector<wired_finding> find_wiring(const wired_network& network, const wiring_labels& labels,
                                       bool with_notes);

}  // namespace morvane::cli

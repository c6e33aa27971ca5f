// What the DVIs of a folder have to do with each other.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>

#include "cli/findings/findings.h"
#include "cli/lint/dvi_reading.h"
#include "cli/lint/folder_rules.h"
#include "cli/wiring/wired_network.h"

namespace morvane::cli {

/// The network of the DVIs read so far, with a copy of the names of its ports.
struct folder_network {
  wired_network wired{};
  std::unordered_set<std::string> names{};
};

/// Adds a DVI that cannot be read, or whose header has an error.
void add_doubted_dvi(folder_network& network, std::uint32_t position);

/// Adds a DVI, with the findings about its header. The DVIs come in the order of their positions.
void add_dvi(folder_network& network, const dvi_reading& reading);

/// Tells the sink what is wrong with the network.
void check_network(const folder_network& network, const lint_scope& scope,
                   const folder_reading& files, const finding_sink& sink);

}  // namespace morvane::cli

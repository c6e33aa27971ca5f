// Which output feeds which input of a network, told by the names of the ports.
#pragma once

#include <cstdint>
#include <vector>

#include "cli/wiring/wired_network.h"

namespace morvane::cli {

/// Stands for a port that does not exist.
inline constexpr std::uint32_t no_port = UINT32_MAX;

/// What a port has to do with others, by their positions in wired_network::ports.
struct port_link {
  std::uint32_t name = 0;  // equal for ports of one name
  /// Of an input, the last output of its name in an earlier DVI. Of an output, the last output of
  /// its name before it, unless the DVI reads that and writes it anew in place.
  std::uint32_t source = no_port;
  std::uint32_t outside = no_port;  // of an input without a source, the first that reads its bytes
  std::uint32_t first_reader = no_port;  // of an output, or of the first input from outside
  std::uint32_t last_reader = no_port;
};

struct port_links {
  std::vector<port_link> ports{};
  std::vector<std::uint32_t> first_outputs{};  // by the number of a name
};

port_links find_links(const wired_network& network);

/// Adds an input to those that read the data of a port.
void add_reader(port_links& links, std::uint32_t source, std::uint32_t reader);

/// The output of a later DVI that an input without a source has its name from, or no_port.
std::uint32_t late_producer(const wired_network& network, const port_links& links,
                            std::uint32_t input);

}  // namespace morvane::cli

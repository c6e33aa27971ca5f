// Which output feeds which input.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "cli/package/opened_package.h"

namespace morvane::cli {

/// An input or an output, by its position among those of its DVI.
struct port_place {
  std::uint32_t dvi = 0;
  std::uint32_t index = 0;
  // NOLINTNEXTLINE(modernize-use-nullptr): the check takes a comparison with 0 for a pointer
  auto operator<=>(const port_place&) const = default;
};

/// An output of a DVI and a later input that gets its data.
struct connection {
  port_place output{};
  port_place input{};
  std::uint32_t mismatch = 0;  // 0 when both agree, otherwise a number of network_flow::mismatches
};

struct network_flow {
  std::vector<connection> by_input{};     // in the order of the inputs
  std::vector<connection> by_output{};    // the same in the order of the outputs
  std::vector<port_place> lost{};         // inputs that a DVI fed in an older package, in order
  bool is_whole = true;                   // no DVI is cut off that could get data
  std::vector<std::string> mismatches{};  // the first is empty: "W is 8, not 16"
};

/// Finds all connections of a package.
network_flow find_flow(const opened_package& package);

/// Notes the inputs that have no connection, but had one in the older package.
void find_lost_inputs(const opened_package& older, const opened_package& package,
                      network_flow& flow);

/// Where the data of an input without a connection comes from, and where that of an output goes to.
std::string_view origin_of(const network_flow& flow, port_place input);
std::string_view destination_of(const network_flow& flow);

/// The connection to an input, or null when its data comes from outside.
const connection* connection_to(const network_flow& flow, port_place input);

/// The connections from an output; none when its data goes outside.
std::span<const connection> connections_from(const network_flow& flow, port_place output);

/// All connections from the outputs of a DVI.
std::span<const connection> connections_from_dvi(const network_flow& flow, std::uint32_t dvi);

}  // namespace morvane::cli

// Ports that pass data on: an input gets what an earlier DVI's output of the same name left.
#pragma once

#include <morvane/package_view.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "cli/package/overlaps.h"
#include "cli/package/package_walk.h"

namespace morvane::cli {

/// What a port hands on unchanged: dims, format, size and offset.
using port_flow = std::array<std::int64_t, 11>;

/// The flow of a port in a package or of a port_desc.
template <class Port>
port_flow flow_of(const Port& port) {
  return {
      port.P,        port.D,         port.H,       port.W,         port.dram_format,     port.sign,
      port.datasize, port.expoffset, port.expbits, port.port_size, port.port_byte_offset};
}

/// The bytes of a port, by its offset and size.
used_range port_bytes(const port_flow& flow);

/// How many bytes the dims need with the data size; 0 if one of them is not given or 0. A number
/// that is too great for a port becomes one that is too great too.
std::uint64_t needed_bytes(const port_flow& flow);

/// "1 x 3 x 8 x 10 values of 8 bits"
std::string dims_text(const port_flow& flow);

/// In what an input differs from its output: "W is 8, not 16; H is 1, not 2", or nothing.
std::string flow_differences(const port_flow& input, const port_flow& output);

/// An output, and where it is.
struct known_output {
  record_name name;
  morvane_view_port port{};
};

/// The last output of each name among the DVIs met so far. The names lie in the package.
using known_outputs = std::unordered_map<std::string_view, known_output>;

/// Adds an output, in place of an earlier one of its name.
void remember_output(const morvane_view_port& output, const record_name& name,
                     known_outputs& outputs);

/// The output that an input gets its data from, or null. An input without a name gets data from
/// nowhere.
const known_output* source_of(const morvane_view_port& input, const known_outputs& outputs);

}  // namespace morvane::cli

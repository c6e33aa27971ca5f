// Reads the HMB ports that a header describes.
#pragma once

#include <string_view>
#include <vector>

#include "format/macros.h"
#include "format/records.h"
#include "headers/block_reader.h"

namespace morvane {

/// A port before its macros are read. These values of the data format mean "not given".
constexpr port_desc empty_port() {
  port_desc port{};
  port.sign = 0xFF;
  port.datasize = 0xFF;
  port.expoffset = -1;
  port.expbits = 0xFF;
  return port;
}

/// The blocks of the ports of a class.
constexpr block_format port_blocks(const port_class& ports_class) {
  return {.keyword = ports_class.keyword,
          .marker_lead = "_",
          .name_limit = io_name_limit,
          .name_offset = offsetof(port_desc, port_name),
          .macros = port_macros};
}

/// Appends one port_desc for every port of the class in the header's text. Returns 0. At a port
/// name or layer name that is too long, reports the limit IO_NAME or IO_DEMNGL_NAME, does not
/// append that port, reads no more ports and returns -1.
inline int parse_port_descriptions(std::vector<port_desc>& ports, std::string_view header,
                                   const port_class& ports_class) {
  return read_blocks(header, port_blocks(ports_class), empty_port(), ports);
}

}  // namespace morvane

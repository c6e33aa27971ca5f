#include "headers/port_descriptions.h"

#include "format/length_limits.h"
#include "headers/block_reader.h"

namespace morvane {

namespace {

/// A port before its macros are read. These values of the data format mean "not given".
constexpr port_desc empty_port() {
  port_desc port{};
  port.sign = 0xFF;
  port.datasize = 0xFF;
  port.expoffset = -1;
  port.expbits = 0xFF;
  return port;
}

}  // namespace

int parse_port_descriptions(std::vector<port_desc>& ports, std::string_view header,
                            const port_class& ports_class) {
  const block_format format{.keyword = ports_class.keyword,
                            .marker_lead = "_",
                            .name_limit = io_name_limit,
                            .name_offset = offsetof(port_desc, port_name),
                            .macros = port_macros};
  return read_blocks(header, format, empty_port(), ports);
}

}  // namespace morvane

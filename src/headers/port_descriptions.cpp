#include "headers/port_descriptions.h"

namespace morvane {

int parse_port_descriptions(std::vector<port_desc>& ports, std::string_view header,
                            const port_class& ports_class) {
  return read_blocks(header, port_blocks(ports_class), empty_port(), ports);
}

}  // namespace morvane

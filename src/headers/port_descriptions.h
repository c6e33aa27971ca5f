// Reads the HMB ports that a header describes.
#pragma once

#include <string_view>
#include <vector>

#include "format/macros.h"
#include "format/records.h"

namespace morvane {

/// Appends one port_desc for every port of the class in the header's text. Returns 0. At a port
/// name or layer name that is too long, reports the limit IO_NAME or IO_DEMNGL_NAME, does not
/// append that port, reads no more ports and returns -1.
int parse_port_descriptions(std::vector<port_desc>& ports, std::string_view header,
                            const port_class& ports_class);

}  // namespace morvane

// Reads the vproc variables that a header describes.
#pragma once

#include <string_view>
#include <vector>

#include "format/records.h"

namespace morvane {

/// Appends one var_desc for every variable block in the header's text. Returns 0. At a variable
/// name that is too long, reports the limit VAR_NAME, stops reading and returns -1.
int parse_vproc_variables(std::vector<var_desc>& variables, std::string_view header);

}  // namespace morvane

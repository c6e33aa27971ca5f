// Reads the vproc variables that a header describes.
#pragma once

#include <string_view>
#include <vector>

#include "format/records.h"
#include "headers/block_reader.h"

namespace morvane {

/// The blocks of variables. The macros of a variable begin with its name, so the marker does too.
inline constexpr block_format variable_blocks{.keyword = variable_keyword,
                                              .marker_lead = "",
                                              .name_limit = var_name_limit,
                                              .name_offset = offsetof(var_desc, var),
                                              .macros = variable_macros};

/// Appends one var_desc for every variable block in the header's text. Returns 0. At a variable
/// name that is too long, reports the limit VAR_NAME, stops reading and returns -1.
inline int parse_vproc_variables(std::vector<var_desc>& variables, std::string_view header) {
  return read_blocks(header, variable_blocks, var_desc{}, variables);
}

}  // namespace morvane

#include "headers/vproc_variables.h"

#include "headers/block_reader.h"

namespace morvane {

int parse_vproc_variables(std::vector<var_desc>& variables, std::string_view header) {
  // The macros of a variable begin with its name, so the marker does too.
  const block_format format{.keyword = variable_keyword,
                            .marker_lead = "",
                            .name_limit = var_name_limit,
                            .name_offset = offsetof(var_desc, var),
                            .macros = variable_macros};
  return read_blocks(header, format, var_desc{}, variables);
}

}  // namespace morvane

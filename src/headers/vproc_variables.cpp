#include "headers/vproc_variables.h"

namespace morvane {

int parse_vproc_variables(std::vector<var_desc>& variables, std::string_view header) {
  return read_blocks(header, variable_blocks, var_desc{}, variables);
}

}  // namespace morvane

// What the header of a DVI describes, as the package holds it.
#pragma once

#include <cstddef>
#include <vector>

#include "format/records.h"

namespace morvane::cli {

struct parsed_dvi {
  dvi_desc dvi{};
  std::vector<std::byte> ports{};          // the port_desc of the inputs, then those of the outputs
  vproc_desc vproc{};                      // zeros if the vproc records are not read
  std::vector<std::byte> vproc_records{};  // the var_desc of the variables, then the smb_desc
};

using parsed_dvis = std::vector<parsed_dvi>;

}  // namespace morvane::cli

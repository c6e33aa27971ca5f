// The result of input discovery, for the header parsers and the pack run.
#pragma once

#include <cstdint>
#include <string>

namespace morvane {

/// A file of the input folder. Headers are listed in the order of their DVIs: the header and the
/// DVI at the same position belong together and have the same index.
struct input_entry {
  std::string name;        // without the folder
  std::int32_t index = 0;  // the number before the extension of the DVI's name
};

}  // namespace morvane

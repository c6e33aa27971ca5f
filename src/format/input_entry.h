// What input discovery hands to the header parsers and the pack run.
#pragma once

#include <cstdint>
#include <string>

namespace morvane {

/// A file of the input folder. The headers are listed in the order of their DVIs: the entries at
/// one position belong together and bear the same index.
struct input_entry {
  std::string name;        // without the folder
  std::int32_t index = 0;  // the number after "_split_" in the DVI's name
};

}  // namespace morvane

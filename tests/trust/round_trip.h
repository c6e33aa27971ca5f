// Pack, inspect, pack: the tool's operations in this process, on a folder of its own.
#pragma once

#include <map>
#include <string>

#include "harness/scratch_folder.h"

namespace morvane::test {

/// What the two pack runs brought.
struct round_trip {
  int first_status = -1;
  int second_status = -1;
  std::string first;   // the package of the folder
  std::string second;  // the package of what the inspection of the first regenerated
};

/// Writes the files to a folder, packs it, inspects the package and packs the parse folder. Uses
/// and empties the scratch folder.
round_trip pack_inspect_pack(const scratch_folder& scratch,
                             const std::map<std::string, std::string>& files, bool vproc);

}  // namespace morvane::test

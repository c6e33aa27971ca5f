// Packs, inspects and packs again, with the tool's operations in this process.
#pragma once

#include <map>
#include <string>

#include "harness/scratch_folder.h"

namespace morvane::test {

/// The results of the two pack runs.
struct round_trip {
  int first_status = -1;
  int second_status = -1;
  std::string first;   // the package of the folder
  std::string second;  // the package of the regenerated folder
};

/// Writes the files to a folder, packs it, inspects the package and packs the parse folder. Works
/// in the scratch folder and empties it.
round_trip pack_inspect_pack(const scratch_folder& scratch,
                             const std::map<std::string, std::string>& files, bool vproc);

}  // namespace morvane::test

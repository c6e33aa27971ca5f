// The names in a folder: which files are packed, and in which order.
#pragma once

#include <string>
#include <vector>

#include "companion/findings.h"
#include "companion/lint/lint_folder.h"
#include "discovery/input_files.h"

namespace morvane::companion {

/// The DVIs of a folder in the order in which they are packed, each with the header at the same
/// position.
struct folder_reading {
  std::vector<input_entry> dvis;
  std::vector<wanted_header> headers;
};

/// Finds what the pack run finds, and tells the sink what is wrong with the names.
folder_reading read_folder(const lint_scope& scope, const finding_sink& sink);

}  // namespace morvane::companion

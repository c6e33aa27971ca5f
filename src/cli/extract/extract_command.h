// morvane extract: writes the images of a package to files, or one to standard output.
#pragma once

#include <string>
#include <vector>

#include "cli/output/console.h"

namespace morvane::cli {

struct extract_options {
  std::string package{};                 // path
  std::vector<std::string> dag_names{};  // none for all
  std::string folder = ".";              // "-" for standard output
  bool force = false;                    // replace existing files
  bool list = false;                     // print the names only
};

/// Extracts the images. Returns the exit status: status_findings when a name cannot be used, or
/// when the package cannot be walked to its end.
int run_extract(const extract_options& options, console& streams);

}  // namespace morvane::cli

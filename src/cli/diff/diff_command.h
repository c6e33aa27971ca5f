// morvane diff: tells how two packages differ.
#pragma once

#include <string>

#include "cli/output/console.h"

namespace morvane::cli {

struct diff_options {
  std::string old_package;  // paths of packages or of folders to pack, "-" for standard input
  std::string new_package;
  bool json = false;
};

/// Compares two packages, or a package with the one that a folder makes. Returns the exit status:
/// status_fine when every byte is the same.
int run_diff(const diff_options& options, console& streams);

}  // namespace morvane::cli

// morvane pack: writes a package that is either complete or not there.
#pragma once

#include <string>

#include "cli/output/console.h"

namespace morvane::cli {

struct pack_options {
  std::string folder;   // the compiler's output
  std::string package;  // path
  std::string depfile;  // path; none when empty
  bool vproc = false;
  bool warnings_are_errors = false;
  bool sync = true;  // wait until the package is on the disk
};

/// Lints the folder. Without errors, packs it into a new file, checks that, and only then gives it
/// the package's path. Returns the exit status. Unless that is status_fine, the package is as it
/// was before; or a message says that the new one is in place.
int run_pack(const pack_options& options, console& streams);

}  // namespace morvane::cli

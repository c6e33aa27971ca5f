// morvane pack: writes a package that is either complete or not there.
#pragma once

#include <string>

#include "cli/findings/finding_output.h"
#include "cli/output/console.h"
#include "cli/package/package_bytes.h"

namespace morvane::cli {

struct pack_options {
  std::string folder{};   // the compiler's output
  std::string package{};  // path, "-" for standard output
  std::string depfile{};  // path, "-" for standard output; none when empty
  bool vproc = false;
  bool sync = true;  // wait until the package is on the disk
  finding_options findings{};
};

/// Lints the folder. Without errors, packs it into a new file, checks that, and only then gives it
/// the package's path. Returns the exit status. Unless that is status_fine, the package is as it
/// was before; or a message says that the new one is in place.
int run_pack(const pack_options& options, console& streams);

/// Packs the folder in the same way into memory; the package's path and the dependency file have no
/// meaning. Returns the exit status. Unless that is status_fine, the bytes are as they were.
int pack_into_memory(const pack_options& options, console& streams, package_bytes& package);

}  // namespace morvane::cli

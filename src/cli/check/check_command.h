// morvane check: tells whether packages are sound.
#pragma once

#include <string>
#include <vector>

#include "cli/check/check_package.h"
#include "cli/findings/finding_output.h"
#include "cli/output/console.h"

namespace morvane::cli {

struct check_options {
  std::vector<std::string> packages;  // paths
  check_scope scope;
  finding_options findings{};
};

/// Writes a verdict for every package. Returns the exit status: status_fine when all are sound.
int run_check(const check_options& options, console& streams);

}  // namespace morvane::cli

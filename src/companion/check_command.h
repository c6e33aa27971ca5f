// morvane check: tells whether packages are sound.
#pragma once

#include <string>
#include <vector>

#include "companion/check_package.h"
#include "companion/console.h"
#include "companion/finding_output.h"

namespace morvane::companion {

struct check_options {
  std::vector<std::string> packages;  // paths
  check_scope scope;
  bool warnings_are_errors = false;
  finding_format format = finding_format::text;
};

/// Writes a verdict for every package. Returns the exit status: status_fine when all are sound.
int run_check(const check_options& options, console& streams);

}  // namespace morvane::companion

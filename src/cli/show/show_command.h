// morvane show: what a package holds.
#pragma once

#include <string>

#include "cli/output/console.h"

namespace morvane::cli {

struct show_options {
  std::string package;  // path
  bool json = false;
  bool digest = false;  // of every image
};

/// Shows a package, of a damaged one what can be reached. Returns the exit status: status_findings
/// when it is damaged.
int run_show(const show_options& options, console& streams);

}  // namespace morvane::cli

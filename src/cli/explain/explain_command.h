// morvane explain: tells what a code means and what to do.
#pragma once

#include <string>
#include <vector>

#include "cli/output/console.h"

namespace morvane::cli {

struct explain_options {
  std::vector<std::string> codes;
};

/// Writes what findings.md says about the codes; without codes, the list of all. Returns the exit
/// status: status_failed for a code that does not exist.
int run_explain(const explain_options& options, console& streams);

}  // namespace morvane::cli

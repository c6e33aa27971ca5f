// morvane show: what a package holds.
#pragma once

#include <string>
#include <vector>

#include "cli/output/console.h"

namespace morvane::cli {

struct show_options {
  std::string package{};                 // path
  std::vector<std::string> dag_names{};  // of the DVIs to show; none for all
  bool json = false;
  bool csv = false;
  bool digest = false;  // of every image
};

/// Shows a package, of a damaged one what can be reached. Returns the exit status: status_findings
/// when it is damaged, status_failed when no DVI has one of the names.
int run_show(const show_options& options, console& streams);

}  // namespace morvane::cli

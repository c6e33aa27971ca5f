// morvane report: a page that shows a package.
#pragma once

#include <string>

#include "cli/output/console.h"

namespace morvane::cli {

struct report_options {
  std::string package{};      // path
  std::string output{};       // path of the file to write; empty or "-" for standard output
  std::string old_package{};  // path of a package to compare with; empty for none
  bool dot = false;           // the network for Graphviz instead of the page
};

/// Writes the page. A file appears whole or not at all. Returns the exit status: status_fine when
/// the page was written, also of a package that is not sound or differs, because the page says so.
int run_report(const report_options& options, console& streams);

}  // namespace morvane::cli

// Every difference between two packages, record by record, and also where they cannot be walked.
#pragma once

#include "cli/diff/difference.h"
#include "cli/output/console.h"
#include "cli/package/opened_package.h"

namespace morvane::cli {

/// Hands every difference to the sink: those of the header, and of the DVIs in the order of the old
/// package. What cannot be walked in a package counts as missing from it; then, and when no record
/// tells the difference, the bytes of the files are compared too. Shows how far the work has come.
void compare_packages(const opened_package& old_package, const opened_package& new_package,
                      console& streams, const difference_sink& sink);

}  // namespace morvane::cli

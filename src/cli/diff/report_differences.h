// Every difference between two packages, also where they cannot be walked.
#pragma once

#include "cli/diff/difference.h"
#include "cli/output/console.h"
#include "cli/package/opened_package.h"

namespace morvane::cli {

/// Hands every difference to the sink, as compare_packages does. The bytes of the files are
/// compared too where they cannot be walked, and when no record tells the difference. Shows how far
/// the work has come.
void report_differences(const opened_package& old_package, const opened_package& new_package,
                        console& streams, const difference_sink& sink);

}  // namespace morvane::cli

// The differences between two packages, record by record.
#pragma once

#include "cli/diff/difference.h"
#include "cli/package/opened_package.h"

namespace morvane::cli {

/// Hands every difference to the sink: those of the header, and of the DVIs in the order of the old
/// package. What cannot be walked in a package counts as missing from it. Tells after each DVI how
/// many bytes of the old package were compared.
void compare_packages(const opened_package& old_package, const opened_package& new_package,
                      const difference_sink& sink,
                      const std::function<void(std::uint64_t done)>& progress);

}  // namespace morvane::cli

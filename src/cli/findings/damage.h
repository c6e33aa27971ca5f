// The damage that ends the walk over a package, as a finding.
#pragma once

#include <morvane/package_view.h>

#include "cli/findings/findings.h"

namespace morvane::cli {

/// The kind of finding for a status of opening.
const finding_kind& kind_of_damage(int status);

/// Tells the sink why opening a package failed.
void report_damage(const morvane_view_damage& damage, const finding_sink& sink);

}  // namespace morvane::cli

// The damage that ends the walk over a package, as a finding.
#pragma once

#include <morvane/package_view.h>

#include "companion/findings.h"

namespace morvane::companion {

/// Tells the sink why opening a package failed.
void tell_damage(const morvane_view_damage& damage, const finding_sink& sink);

}  // namespace morvane::companion

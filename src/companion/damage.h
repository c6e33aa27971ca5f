// The damage that ends the walk over a package, as a finding.
#pragma once

#include <morvane/package_view.h>

#include "companion/findings.h"

namespace morvane::companion {

/// The kind of finding for a status of opening.
const finding_kind& kind_of_damage(int status);

/// Tells the sink why opening a package failed.
void tell_damage(const morvane_view_damage& damage, const finding_sink& sink);

}  // namespace morvane::companion

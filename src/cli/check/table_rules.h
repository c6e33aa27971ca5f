// The rules that concern the DVI table of a package: each DVI, names that repeat.
#pragma once

#include <morvane/package_view.h>

#include "cli/findings/findings.h"

namespace morvane::cli {

/// Checks the DVIs that can be reached, without their ports, images and vproc records, and tells
/// the sink what is wrong.
void check_table(const morvane_view& view, bool with_notes, const finding_sink& sink);

}  // namespace morvane::cli

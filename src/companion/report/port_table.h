// The table of a DVI's ports.
#pragma once

#include "companion/report/package_changes.h"
#include "companion/report/page_content.h"
#include "companion/report/page_output.h"

namespace morvane::companion {

/// Writes the inputs and the outputs of a DVI, nothing when it has none.
void write_port_table(const page_content& content, const morvane_view_dvi& dvi,
                      const record_marks& marks, page_output& out);

}  // namespace morvane::companion

// The table of a DVI's ports.
#pragma once

#include "cli/report/html/page_output.h"
#include "cli/report/model/package_changes.h"
#include "cli/report/model/page_content.h"

namespace morvane::cli {

/// Writes the inputs and the outputs of a DVI, nothing when it has none.
void write_port_table(const page_content& content, const morvane_view_dvi& dvi,
                      const record_marks& marks, page_output& out);

}  // namespace morvane::cli

// The rows of the picture of a network.
#pragma once

#include "cli/report/html/page_output.h"
#include "cli/report/model/page_content.h"

namespace morvane::cli {

/// Writes a box for each DVI, with a row for each port, and wires between the rows.
void write_port_rows(const page_content& content, page_output& out);

/// Writes a thin row for each DVI, and one wire from it to all that it feeds.
void write_dvi_rows(const page_content& content, page_output& out);

}  // namespace morvane::cli

// All that is said about the text of one header.
#pragma once

#include "cli/lint/header/header_findings.h"
#include "cli/lint/header/header_reading.h"

namespace morvane::cli {

/// Compares what the pack run reads in a header with what C sees in it. Returns the findings in no
/// order.
header_findings compare_header(const header_reading& reading, bool with_vproc, bool with_notes);

}  // namespace morvane::cli

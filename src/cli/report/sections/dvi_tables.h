// The tables of all DVIs: fields, ports, variables and SMB blocks.
#pragma once

#include "cli/report/html/page_output.h"
#include "cli/report/model/page_content.h"

namespace morvane::cli {

/// Writes all DVIs in the order of the package, folded when there are many. Gives back the memory
/// of each and shows how far the work has come.
void write_dvis(const page_content& content, page_output& out);

}  // namespace morvane::cli

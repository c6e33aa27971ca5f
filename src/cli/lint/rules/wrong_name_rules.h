// Macros that nothing reads because their name is nearly right.
#pragma once

#include "cli/lint/c/c_lines.h"
#include "cli/lint/rules/comparison.h"

namespace morvane::cli {

/// Tells when a macro that belongs to no block is probably meant for the DAG or for the block above
/// it. The place is that of its name. Returns whether it is.
bool check_wrong_name(comparison& header, const c_line& line, std::size_t place);

}  // namespace morvane::cli

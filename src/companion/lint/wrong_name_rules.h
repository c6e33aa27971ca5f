// Macros that nothing reads because their name is nearly right.
#pragma once

#include "companion/lint/c_lines.h"
#include "companion/lint/comparison.h"

namespace morvane::companion {

/// Tells when a macro that belongs to no block is probably meant for the DAG or for the block above
/// it. The place is that of its name. Returns whether it is.
bool judge_wrong_name(comparison& header, const c_line& line, std::size_t place);

}  // namespace morvane::companion

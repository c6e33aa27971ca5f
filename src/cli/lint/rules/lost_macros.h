// The macros that no block takes, judged together: what they have in common is one mistake.
#pragma once

#include "cli/lint/rules/comparison.h"

namespace morvane::cli {

/// At the end of the header: tells why macros are in no block.
void check_lost_macros(comparison& header);

}  // namespace morvane::cli

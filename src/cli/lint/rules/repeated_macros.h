// Macros that a header defines more than once, or that more than one block has.
#pragma once

#include "cli/lint/rules/comparison.h"

namespace morvane::cli {

/// Takes up a definition of the block that is being read.
void remember_definition(comparison& header, const own_definition& definition);

/// At the end of the header: compares the definitions of the same macro, and every block that has
/// it with the last definition, which is the one that C takes.
void check_repeated(comparison& header);

}  // namespace morvane::cli

// Macros that belong to nothing that the header introduces.
#pragma once

#include "cli/lint/c/c_lines.h"
#include "cli/lint/rules/comparison.h"

namespace morvane::cli {

/// Tells when such a macro is probably meant for the DAG or for the block above it, as its name is
/// nearly right. Otherwise takes it up, and notes it. The place is that of its name.
void check_unknown_macro(comparison& header, const c_line& line, std::size_t place);

/// Tells when the unknown macros up to here are those of one port, at the first of them. To be
/// called at the end of the header.
void check_missing_block(comparison& header);

}  // namespace morvane::cli

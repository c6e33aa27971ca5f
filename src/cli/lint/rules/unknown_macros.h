// Single macros that belong to nothing that the header introduces.
#pragma once

#include <optional>

#include "cli/lint/rules/comparison.h"

namespace morvane::cli {

/// What to say about a macro that is probably meant for the DAG or for the block above it, as its
/// name is nearly right; nothing about any other.
std::optional<header_finding> misnaming_of(comparison& header, const lost_macro& macro);

/// Notes that a macro of the DAG is not read.
void note_unknown(comparison& header, const lost_macro& macro);

}  // namespace morvane::cli

// Ports whose macros are there, but no line that introduces them.
#pragma once

#include "cli/lint/rules/comparison.h"

namespace morvane::cli {

/// Takes up a macro that belongs to nothing. Its place is that of its name.
void take_unknown_macro(comparison& header, std::string_view name, std::size_t place);

/// Tells when the unknown macros up to here are those of one port, at the first of them. To be
/// called at the end of the header.
void check_missing_block(comparison& header);

}  // namespace morvane::cli

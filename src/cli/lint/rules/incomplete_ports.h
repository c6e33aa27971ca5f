// Blocks without a macro that they need.
#pragma once

#include "cli/lint/rules/comparison.h"

namespace morvane::cli {

/// At the end of a block: takes up which macros it has, and notes which it needs.
void check_defaults(comparison& header, object_kind kind);

/// At the end of the header: tells which ports lack what all other ports have.
void check_incomplete_ports(comparison& header);

}  // namespace morvane::cli

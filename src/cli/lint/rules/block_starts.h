// The lines that introduce blocks and name the DAG.
#pragma once

#include <string_view>

#include "cli/lint/c/c_lines.h"
#include "cli/lint/rules/comparison.h"

namespace morvane::cli {

/// Judges a line that introduces a block: whether the name is whole, and whether the block counts.
void check_introduction(comparison& header, object_kind kind, const parsed_block& block,
                        const c_line& line, std::string_view text);

/// Judges the line that names the DAG.
void check_dag_line(comparison& header, const c_line& line, std::string_view text);

/// Tells which names are too long for their fields, so that the pack run fails.
void check_stops(comparison& header);

}  // namespace morvane::cli

// The values that the pack run takes: whether each comes from the macro that C has for it.
#pragma once

#include <string_view>

#include "cli/lint/c/c_lines.h"
#include "cli/lint/rules/comparison.h"

namespace morvane::cli {

/// A value that a parser took on a line.
struct line_value {
  object_kind kind;
  std::uint32_t block;
  const macro_row* row;
  std::string_view word;
};

/// Judges a value. Returns whether it is taken from its own macro, which C has too.
bool check_value(comparison& header, const line_value& value, const c_line& line,
                 std::string_view text);

/// Ends a block: tells which of its values come from other lines than those of their macros.
void check_block_end(comparison& header, object_kind kind);

}  // namespace morvane::cli

// The macros that C has and the pack run does not read.
#pragma once

#include <string_view>

#include "cli/lint/c/c_lines.h"
#include "cli/lint/rules/comparison.h"

namespace morvane::cli {

/// Judges a macro that is defined or undefined on a line, when no parser took a value for it there.
/// The text is that of the line; whether a stray value was taken on it says the last argument.
void check_unread(comparison& header, const c_line& line, std::string_view text, bool took_stray);

/// At the end of the header: tells which macros stay undefined for C.
void check_undefined(comparison& header);

}  // namespace morvane::cli

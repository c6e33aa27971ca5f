// The macros that C has and the pack run does not read.
#pragma once

#include <string_view>

#include "companion/lint/c_lines.h"
#include "companion/lint/comparison.h"

namespace morvane::companion {

/// Judges a macro that is defined or undefined on a line, when no parser took a value for it there.
/// The text is that of the line; whether a stray value was taken on it says the last argument.
void judge_unread(comparison& header, const c_line& line, std::string_view text, bool took_stray);

/// At the end of the header: tells which macros stay undefined for C.
void judge_undefined(comparison& header);

}  // namespace morvane::companion

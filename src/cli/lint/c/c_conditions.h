// The conditions of a header: #if and what belongs to it.
#pragma once

#include <string_view>

#include "cli/lint/c/c_lines.h"

namespace morvane::cli {

/// Opens, changes or closes a condition, if the directive is one. The place is that of its line,
/// the argument what follows the directive, without comments. Only what generated headers need is
/// decided: an include guard, 0, 1, and whether __cplusplus is defined.
void follow_condition(c_reader& reader, std::string_view directive, std::string_view argument,
                      std::size_t place);

/// Sets how the conditions around a line make it visible, and which one decides.
void apply_conditions(const c_reader& reader, c_line& line);

}  // namespace morvane::cli

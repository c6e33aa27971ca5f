// The conditions of a header: #if and what belongs to it.
#pragma once

#include <string_view>

#include "cli/lint/c/c_lines.h"

namespace morvane::cli {

/// The names in all conditions of a header, none of them defined yet.
asked_macros macros_of_conditions(std::string_view header);

/// Notes that a line defines or undefines a macro that conditions ask for.
void note_definition(c_reader& reader, const c_line& line);

/// Opens, changes or closes a condition, if the directive is one. The place is that of its line,
/// the argument what follows the directive, without comments.
void follow_condition(c_reader& reader, std::string_view directive, std::string_view argument,
                      std::size_t place);

/// Sets how the conditions around a line make it visible, and which one decides.
void apply_conditions(const c_reader& reader, c_line& line);

}  // namespace morvane::cli

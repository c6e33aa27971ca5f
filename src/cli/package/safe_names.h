// Names from a package that become names of files.
#pragma once

#include <string_view>

namespace morvane::cli {

/// Whether a name holds a control character.
bool holds_control_character(std::string_view name);

/// Why a DAG name cannot be used as a file name; empty when it can.
std::string_view unsafe_part(std::string_view name);

}  // namespace morvane::cli

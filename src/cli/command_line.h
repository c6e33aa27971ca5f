// The command line of morvane.
#pragma once

#include <string>
#include <vector>

namespace morvane::cli {

/// Runs the command that the arguments ask for, the program's name excluded. Returns the exit
/// status.
int run_command_line(const std::vector<std::string>& arguments);

}  // namespace morvane::cli

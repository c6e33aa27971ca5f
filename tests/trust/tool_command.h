// The command that starts the tool behind another program.
#pragma once

#include <string>
#include <vector>

namespace morvane::test {

/// The words of: the starter, the run prefix, the tool, its arguments.
std::vector<std::string> tool_command(std::vector<std::string> starter,
                                      const std::vector<std::string>& arguments);

}  // namespace morvane::test

// The command that starts the tool from another program.
#pragma once

#include <string>
#include <vector>

namespace morvane::test {

/// The words of the starter, the run prefix, the tool and its arguments, in this order.
std::vector<std::string> tool_command(std::vector<std::string> starter,
                                      const std::vector<std::string>& arguments);

}  // namespace morvane::test

#include "trust/tool_command.h"

#include "harness/run_tool.h"

namespace morvane::test {

std::vector<std::string> tool_command(std::vector<std::string> starter,
                                      const std::vector<std::string>& arguments) {
  const std::vector<std::string> prefix = run_prefix();
  starter.insert(starter.end(), prefix.begin(), prefix.end());
  starter.push_back(tool_path());
  starter.insert(starter.end(), arguments.begin(), arguments.end());
  return starter;
}

}  // namespace morvane::test

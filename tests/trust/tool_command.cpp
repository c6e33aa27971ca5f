#include "trust/tool_command.h"

#include "harness/run_tool.h"

namespace morvane::test {

std::vector<std::string> tool_command(std::vector<std::string> starter,
                                      const std::vector<std::string>& arguments) {
  const std::vector<std::string> words = tool_words(arguments);
  starter.insert(starter.end(), words.begin(), words.end());
  return starter;
}

}  // namespace morvane::test

#include "cli/lint/linted_folder.h"

namespace morvane::test {

run_result linted_folder::lint(const std::vector<std::string>& options) const {
  std::vector<std::string> arguments = {"lint", "in"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  return run_morvane(arguments, folder.path());
}

}  // namespace morvane::test

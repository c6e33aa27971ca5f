#include "cli/linted_folder.h"

namespace morvane::test {

run_result linted_folder::lint(const std::vector<std::string>& options) const {
  std::vector<std::string> arguments = {"lint", "in"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  return run_morvane(arguments, folder.path());
}

void linted_folder::expect_findings(int status, std::string_view findings,
                                    const std::vector<std::string>& options) const {
  const run_result run = lint(options);
  EXPECT_EQ(run.status, status);
  EXPECT_EQ(run.output, findings);
  std::vector<std::string> quietly = options;
  quietly.emplace_back("--quiet");
  const run_result quiet = lint(quietly);
  EXPECT_EQ(quiet.status, status);
  EXPECT_EQ(quiet.diagnostics, "");
  EXPECT_EQ(quiet.output.find("warning: "), std::string::npos);
}

}  // namespace morvane::test

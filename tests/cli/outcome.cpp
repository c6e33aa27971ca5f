#include "cli/outcome.h"

namespace morvane::test {

void expect_outcome(const run_result& run, int status, std::string_view output,
                    std::string_view diagnostics) {
  EXPECT_EQ(run.status, status);
  EXPECT_EQ(run.output, output);
  EXPECT_EQ(run.diagnostics, diagnostics);
}

run_result run_shell(const std::string& script, const std::string& folder) {
  std::vector<std::string> words{"/bin/sh", "-c", script, "sh"};
  const std::vector<std::string> program = morvane_words({});
  words.insert(words.end(), program.begin(), program.end());
  return run_program(words, folder);
}

run_result morvane_test::morvane(const std::vector<std::string>& arguments) const {
  return run_morvane(arguments, folder.path());
}

void morvane_test::expect_morvane(const std::vector<std::string>& arguments, int status,
                                  std::string_view output, std::string_view diagnostics) const {
  expect_outcome(morvane(arguments), status, output, diagnostics);
}

}  // namespace morvane::test

#include "companion/outcome.h"

#include <gtest/gtest.h>

namespace morvane::test {

void expect_outcome(const run_result& run, int status, std::string_view output,
                    std::string_view diagnostics) {
  EXPECT_EQ(run.status, status);
  EXPECT_EQ(run.output, output);
  EXPECT_EQ(run.diagnostics, diagnostics);
}

run_result run_shell(const std::string& script, const std::string& folder) {
  std::string command;
  for (const std::string& word : run_prefix()) {
    command += word + " ";
  }
  return run_program({"/bin/sh", "-c", "morvane='" + command + morvane_path() + "'; " + script},
                     folder);
}

}  // namespace morvane::test

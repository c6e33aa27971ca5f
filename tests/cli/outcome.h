// A test of morvane's commands, and what it compares.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {

/// Checks a run's exit status and all that it printed.
void expect_outcome(const run_result& run, int status, std::string_view output,
                    std::string_view diagnostics = "");

/// Runs a script of the shell in a folder. "$@" in it is the program, behind the prefix command.
run_result run_shell(const std::string& script, const std::string& folder);

/// A test in a folder of its own, where morvane runs.
class morvane_test : public testing::Test {
 protected:
  run_result morvane(const std::vector<std::string>& arguments) const;

  /// Runs morvane and checks its exit status and all that it prints.
  void expect_morvane(const std::vector<std::string>& arguments, int status,
                      std::string_view output, std::string_view diagnostics = "") const;

  scratch_folder folder;
};

}  // namespace morvane::test

// What the tests of morvane's commands compare.
#pragma once

#include <string_view>

#include "harness/run_tool.h"

namespace morvane::test {

/// Checks a run's exit status and all that it printed.
void expect_outcome(const run_result& run, int status, std::string_view output,
                    std::string_view diagnostics = "");

/// Runs a script of the shell in a folder. "$@" in it is the program, behind the prefix command.
run_result run_shell(const std::string& script, const std::string& folder);

}  // namespace morvane::test

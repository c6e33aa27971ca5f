// What the tests of morvane's commands compare.
#pragma once

#include <string_view>

#include "harness/run_tool.h"

namespace morvane::test {

/// Checks a run's exit status and all that it printed.
void expect_outcome(const run_result& run, int status, std::string_view output,
                    std::string_view diagnostics = "");

}  // namespace morvane::test

// What a run of morvane must leave behind.
#pragma once

#include <gtest/gtest.h>

#include <string_view>

#include "harness/run_tool.h"

namespace morvane::test {

inline void expect_run(const run_result& run, int status, std::string_view output,
                       std::string_view diagnostics = "") {
  EXPECT_EQ(run.status, status);
  EXPECT_EQ(run.output, output);
  EXPECT_EQ(run.diagnostics, diagnostics);
}

}  // namespace morvane::test

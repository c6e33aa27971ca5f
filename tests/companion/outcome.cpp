#include "companion/outcome.h"

#include <gtest/gtest.h>

namespace morvane::test {

void expect_outcome(const run_result& run, int status, std::string_view output,
                    std::string_view diagnostics) {
  EXPECT_EQ(run.status, status);
  EXPECT_EQ(run.output, output);
  EXPECT_EQ(run.diagnostics, diagnostics);
}

}  // namespace morvane::test

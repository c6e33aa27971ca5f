// A folder that morvane lint reads, for the tests of its findings.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {

class linted_folder : public testing::Test {
 protected:
  [[nodiscard]] run_result lint(const std::vector<std::string>& options = {}) const;

  /// Lints the folder "in" and checks the status and what is found. With --quiet the status is the
  /// same, and only errors are told.
  void expect_findings(int status, std::string_view findings,
                       const std::vector<std::string>& options = {}) const;

  scratch_folder folder;
};

}  // namespace morvane::test

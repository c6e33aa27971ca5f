// A folder that morvane lint reads, for the tests of its findings.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {

class linted_folder : public testing::Test {
 protected:
  [[nodiscard]] run_result lint(const std::vector<std::string>& options = {}) const;

  scratch_folder folder;
};

}  // namespace morvane::test

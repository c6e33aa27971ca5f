// What morvane lint says about macros that the pack run does not read, or reads from elsewhere.
#include <gtest/gtest.h>

#include "cli/linted_folder.h"

namespace morvane::test {
namespace {

class LintMacros : public linted_folder {};

TEST_F(LintMacros, FindsAMacroThatAConditionLeavesOut) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W 40\n"
               "#if 0 // _data_\n"
               "#define net_data_H 49\n"
               "#endif\n");
  expect_findings(0,
                  "in/net.h:6:20: warning: a line that the condition on line 5 leaves out is read "
                  "as net_data_H, which becomes 49 [conditional]\n");
}

}  // namespace
}  // namespace morvane::test

// What morvane lint says about the line that names the DAG, when C does not see it there.
#include <gtest/gtest.h>

#include "cli/linted_folder.h"

namespace morvane::test {
namespace {

class LintDagName : public linted_folder {
 protected:
  void expect_finding(std::string_view line, std::string_view finding) const {
    folder.write("in/net.dvi", "image");
    folder.write("in/net.h", std::string(line) + "#define net_image_size 5\n");
    expect_findings(0, finding);
  }
};

TEST_F(LintDagName, FindsANameInAComment) {
  expect_finding("/* net_DAG_NAME net */\n",
                 "in/net.h:1:17: warning: a comment is read as the DAG's name: it becomes \"net\" "
                 "[in-comment]\n");
}

TEST_F(LintDagName, FindsANameWithoutADefine) {
  expect_finding("char net_DAG_NAME net\n",
                 "in/net.h:1:19: warning: a line without #define is read as the DAG's name: it "
                 "becomes \"net\" [not-a-define]\n");
}

TEST_F(LintDagName, FindsANameThatAConditionLeavesOut) {
  expect_finding("#if 0\n#define net_DAG_NAME net\n#endif\n",
                 "in/net.h:2:22: warning: a line that a condition leaves out is read as the DAG's "
                 "name: it becomes \"net\" [conditional]\n");
}

TEST_F(LintDagName, FindsANameThatDependsOnTheCompiler) {
  expect_finding("#ifdef __linux__\n#define net_DAG_NAME net\n#endif\n",
                 "in/net.h:2:22: warning: net_DAG_NAME depends on the condition on line 1, but is "
                 "read in any case [conditional]\n");
}

TEST_F(LintDagName, FindsANameBehindABackslash) {
  expect_finding("#define x 1 \\\n net_DAG_NAME net\n",
                 "in/net.h:2:15: warning: the rest of the line before is read as the DAG's name: "
                 "it becomes \"net\" [continued-line]\n");
}

TEST_F(LintDagName, FindsANameThatGoesOn) {
  expect_finding("#define net_DAG_NAME net \\\n #\n",
                 "in/net.h:1:22: warning: the name goes on in the next line, which is not read: "
                 "it becomes \"net\" [continued-line]\n");
}

TEST_F(LintDagName, FindsANameBehindAnotherMacro) {
  expect_finding("#define x net_DAG_NAME net\n",
                 "in/net.h:1:24: warning: what comes after x is read as the DAG's name: it becomes "
                 "\"net\" [two-macros-on-a-line]\n");
}

TEST_F(LintDagName, FindsAMacroWithALongerName) {
  expect_finding("#define net_DAG_NAMES net\n#define S_image_size 5\n#define S_dagbin_start 1\n",
                 "in/net.h:1:21: warning: net_DAG_NAMES is read as the DAG's name: it becomes "
                 "\"S\" [longer-macro]\n");
}

}  // namespace
}  // namespace morvane::test

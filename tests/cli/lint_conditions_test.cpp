// What morvane lint says about macros that a condition, a comment or #undef changes for C.
#include <gtest/gtest.h>

#include "cli/linted_folder.h"

namespace morvane::test {
namespace {

class LintConditions : public linted_folder {};

TEST_F(LintConditions, LeavesOtherConditionsOpen) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#ifdef __LP64__ // _data_\n"
               "#define net_data_W 40\n"
               "#endif\n");
  expect_findings(0,
                  "in/net.h:5:20: warning: net_data_W depends on the condition on line 4, but is "
                  "read in any case [conditional]\n");
}

TEST_F(LintConditions, KnowsAnIncludeGuard) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#ifndef __NET_H__\n"
               "#define __NET_H__\n"
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "#endif\n");
  expect_findings(0, "");
}

TEST_F(LintConditions, LetTheOutermostDecide) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#if 0 // _data_\n"
               "#if 1 // _data_\n"
               "#define net_data_W 40\n"
               "#endif // _data_\n"
               "#endif\n");
  expect_findings(0,
                  "in/net.h:6:20: warning: a line that the condition on line 4 leaves out is read "
                  "as net_data_W, which becomes 40 [conditional]\n");
}

TEST_F(LintConditions, TakeNoDefinitionInACommentForARepetition) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "#undef net_image_size\n"
               "/* #define net_image_size 5 */\n");
  expect_findings(0,
                  "in/net.h:3:8: warning: #undef is not read: net_image_size stays as it is "
                  "[undefined-macro]\n"
                  "in/net.h:4:27: warning: a comment is read as net_image_size, which becomes 5 "
                  "[in-comment]\n");
}

TEST_F(LintConditions, SayNothingAboutAMacroThatIsDefinedAgain) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "#undef net_image_size\n"
               "#define net_image_size 5\n");
  expect_findings(0, "");
}

TEST_F(LintConditions, SkipTheMarkThatEditorsPutAtTheBegin) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "\xEF\xBB\xBF#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  expect_findings(0, "");
}

TEST_F(LintConditions, SeeADefinitionBehindAComment) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define /* the DAG */ net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  expect_findings(0, "");
}

}  // namespace
}  // namespace morvane::test

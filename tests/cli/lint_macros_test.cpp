// What morvane lint says about macros that the pack run does not read, or reads from elsewhere.
#include <gtest/gtest.h>

#include "cli/linted_folder.h"

namespace morvane::test {
namespace {

class LintMacros : public linted_folder {};

TEST_F(LintMacros, FindsAMacroWithALongerName) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_Width 40\n");
  expect_findings(0,
                  "in/net.h:4:19: warning: net_data_Width is read as net_data_W, which becomes 0 "
                  "[longer-macro]\n");
}

TEST_F(LintMacros, FindsAMacroWithAMisspelledName) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W 40\n"
               "#define net_dta_H 49\n");
  expect_findings(0,
                  "in/net.h:5:9: warning: net_dta_H is not read: the block above it is that of "
                  "input data, whose macro is net_data_H [wrong-name]\n");
}

TEST_F(LintMacros, FindsAMacroWithAMisspelledEnding) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_imag_size 5\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_datsize 16\n"
               "#define net_data_sine 1\n");  // short endings are too near to each other
  expect_findings(0,
                  "in/net.h:2:9: warning: net_imag_size is not read: its ending is unknown, and "
                  "the macro of the DAG is net_image_size [wrong-name]\n"
                  "in/net.h:5:9: warning: net_data_datsize is not read: its ending is unknown, "
                  "and the macro of input data is net_data_datasize [wrong-name]\n");
}

TEST_F(LintMacros, FindsAPortThatNoLineIntroduces) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_inptu data */\n"
               "#define net_data_W 40\n"
               "#define net_data_H 49\n"
               "#define net_frames_W 3\n"  // two macros may be meant for something else
               "#define net_frames_H 3\n"
               "/* mel */\n"
               "#define net_mel_W 40\n"
               "#define net_mel_dflip 49\n"
               "#define net_unit 3\n"
               "#define net_mel_sign 0\n");
  expect_findings(0,
                  "in/net.h:9:9: warning: no line with HMB_input or HMB_output introduces mel: it "
                  "is not in the package, and its 3 macros are not read [missing-block]\n");
}

TEST_F(LintMacros, TellsOfAMissingPortInPlaceOfTheNoteAboutItsFirstMacro) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "#define net_image_size_old 6\n"  // told at the end of the header
               "/* mel */\n"
               "#define net_mel_W 40\n"
               "#define net_mel_H 49\n"
               "#define net_mel_sign 0\n");
  const run_result run = lint({"--notes"});
  EXPECT_EQ(run.output.find(":5:9: note"), std::string::npos) << run.output;
  EXPECT_NE(run.output.find(":5:9: warning: no line with HMB_input"), std::string::npos);
  EXPECT_NE(run.output.find(":6:9: note: net_mel_H"), std::string::npos);
}

TEST_F(LintMacros, FindsAMacroWithAnotherPrefix) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define old_data_W 40\n");
  expect_findings(0,
                  "in/net.h:4:20: warning: old_data_W is read as net_data_W, which becomes 40 "
                  "[wrong-name]\n");
}

TEST_F(LintMacros, FindsAMacroWithTheWrongCase) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_w 40\n");
  expect_findings(0,
                  "in/net.h:4:9: warning: net_data_w is not read: the block above it is that of "
                  "input data, whose macro is net_data_W [wrong-name]\n");
}

TEST_F(LintMacros, FindsTwoMacrosOnALine) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_H 49 /* net_data_W 40 */\n");
  expect_findings(
      0,
      "in/net.h:4:37: warning: what comes after net_data_H is read as net_data_W, which becomes "
      "40 [two-macros-on-a-line]\n");
}

TEST_F(LintMacros, FindsAMacroThatIsDefinedTwice) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W 40\n"
               "#define net_data_W 41\n");
  expect_findings(
      0, "in/net.h:5:20: warning: net_data_W is 41 here, but 40 on line 4 [defined-twice]\n");
}

TEST_F(LintMacros, FindsAMacroOfTwoPortsOfOneName) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W 40\n"
               "/* net HMB_output data */\n"
               "#define net_data_W 41\n");
  expect_findings(
      0,
      "in/net.h:4:20: warning: net_data_W is 40 in input data, but 41 on line 6, which "
      "C takes [defined-twice]\n"
      "in/net.h:6:20: warning: net_data_W is 41 here, but 40 on line 4 [defined-twice]\n");
}

TEST_F(LintMacros, FindsAMacroInOneOfTwoBlocks) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W 40\n"
               "/* net HMB_output data */\n");
  expect_findings(0,
                  "in/net.h:4:20: warning: net_data_W is not in the block of output data "
                  "on line 5, which keeps 0 [defined-elsewhere]\n");
}

TEST_F(LintMacros, FindsAMacroWithACommentInOneOfTwoBlocks) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W 40 /* columns */\n"
               "/* net HMB_output data */\n"
               "#define net_data_H 0 /* rows */\n");
  expect_findings(0,
                  "in/net.h:4:20: warning: net_data_W is not in the block of output data "
                  "on line 5, which keeps 0 [defined-elsewhere]\n");
}

TEST_F(LintMacros, FindsAMacroThatALaterLineChanges) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W 40\n"
               "#define net_data_Width 7\n");
  expect_findings(0,
                  "in/net.h:4:20: warning: net_data_W is 40 here, but line 5 changes it to 0 "
                  "[overwritten]\n"
                  "in/net.h:5:19: warning: net_data_Width is read as net_data_W, which becomes 0 "
                  "[longer-macro]\n");
}

TEST_F(LintMacros, FindsAMacroThatIsUndefined) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W 40\n"
               "#undef net_data_W\n");
  expect_findings(0,
                  "in/net.h:5:8: warning: #undef is not read: net_data_W stays as it is "
                  "[undefined-macro]\n");
}

TEST_F(LintMacros, FindsAMacroBehindAComment) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W 40\n"
               "/* rows */\n"
               "#define net_data_H 49\n");
  expect_findings(0,
                  "in/net.h:6:9: warning: net_data_H is not read: it comes after the block of "
                  "input data, which ended on line 5 [outside-any-block]\n");
}

TEST_F(LintMacros, FindsAMacroAboveItsBlock) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "#define net_data_W 40\n"
               "/* net HMB_input data */\n");
  expect_findings(0,
                  "in/net.h:3:9: warning: net_data_W is not read: it comes before the block of "
                  "input data, which begins on line 4 [outside-any-block]\n");
}

TEST_F(LintMacros, FindsADagMacroAboveTheDagName) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_image_start 4096\n"
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  expect_findings(0,
                  "in/net.h:1:9: warning: net_image_start is not read: it must come after line "
                  "2, which names the DAG [name-before-dag-name]\n");
}

TEST_F(LintMacros, FindsAMacroInAComment) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "/* #define net_data_W 40 */\n");
  expect_findings(0,
                  "in/net.h:4:23: warning: a comment is read as net_data_W, which becomes 40 "
                  "[in-comment]\n");
}

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

TEST_F(LintMacros, FindsAValueOnTheNextLine) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W \\\n"
               "  40\n");
  expect_findings(0,
                  "in/net.h:4:20: warning: the value goes on in the next line, which is not read: "
                  "net_data_W becomes 0 [continued-line]\n");
}

TEST_F(LintMacros, FindsAMacroThatIsNoDefine) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "const int net_data_W = 40;\n");
  expect_findings(0,
                  "in/net.h:4:24: warning: a line without #define is read as net_data_W, which "
                  "becomes 40 [not-a-define]\n");
}

TEST_F(LintMacros, FindsASecondNameOfTheDagOnlyIfItDiffers) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "#define net_DAG_NAME \"net\"\n"
               "#define net_DAG_NAME \"other\"\n");
  expect_findings(0,
                  "in/net.h:4:9: warning: net_DAG_NAME is not read: line 1 names the DAG already, "
                  "\"net\" [defined-twice]\n");
}

}  // namespace
}  // namespace morvane::test

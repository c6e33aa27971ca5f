// What morvane lint says about macros whose block is another one than their line is in.
#include <gtest/gtest.h>

#include "cli/linted_folder.h"

namespace morvane::test {
namespace {

class LintBlocks : public linted_folder {
 protected:
  /// Lints a header with these lines behind the first two.
  void expect_in_header(std::string_view lines, std::string_view findings,
                        const std::vector<std::string>& options = {}) const {
    folder.write("in/net.dvi", "image");
    folder.write("in/net.h", std::string("#define net_DAG_NAME \"net\"\n"
                                         "#define net_image_size 5\n")
                                 .append(lines));
    expect_findings(0, findings, options);
  }
};

TEST_F(LintBlocks, NamesTheLastBlockAboveAMacro) {
  const std::string_view finding =
      "in/net.h:7:9: warning: net_data_H is not read: it comes after the block of ";
  expect_in_header(
      "/* net HMB_input data */\n"
      "/* net HMB_output data */\n"
      "/* rows */\n\n"
      "#define net_data_H 49\n",
      std::string(finding).append("output data, which ended on line 5 [outside-any-block]\n"));
  expect_in_header(
      "/* net HMB_output data */\n"
      "/* net HMB_input data */\n"
      "/* rows */\n\n"
      "#define net_data_H 49\n",
      std::string(finding).append("input data, which ended on line 5 [outside-any-block]\n"));
}

TEST_F(LintBlocks, NamesTheFirstBlockBelowAMacroThatHasNoneAbove) {
  expect_in_header(
      "#define net_data_H 49\n"
      "/* net HMB_input data */\n"
      "/* net HMB_output data */\n",
      "in/net.h:3:9: warning: net_data_H is not read: it comes before the block of input data, "
      "which begins on line 4 [outside-any-block]\n");
  expect_in_header(
      "#define net_data_H 49\n"
      "/* net HMB_output data */\n"
      "/* net HMB_input data */\n",
      "in/net.h:3:9: warning: net_data_H is not read: it comes before the block of output data, "
      "which begins on line 4 [outside-any-block]\n");
}

TEST_F(LintBlocks, NamesTheBlockAboveAMacroBetweenTwo) {
  expect_in_header(
      "/* net HMB_input data */\n"
      "/* rows */\n"
      "#define net_data_H 49\n"
      "/* net HMB_output data */\n",
      "in/net.h:5:9: warning: net_data_H is not read: it comes after the block of input data, "
      "which ended on line 4 [outside-any-block]\n");
}

TEST_F(LintBlocks, FindsAMisspelledMacroOfAnSmb) {
  expect_in_header(
      "/* net SMB_input window */\n"
      "#define net_windw_vbase_byte_offset 4\n"
      "#define net_window_vbase_byte_ofset 4\n",
      "in/net.h:4:9: warning: net_windw_vbase_byte_offset is not read: the block above it is that "
      "of SMB window, whose macro is net_window_vbase_byte_offset [wrong-name]\n"
      "in/net.h:5:9: warning: net_window_vbase_byte_ofset is not read: its ending is unknown, and "
      "the macro of SMB window is net_window_vbase_byte_offset [wrong-name]\n",
      {"--vproc"});
}

TEST_F(LintBlocks, FindsAMisspelledMacroOfAVariable) {
  expect_in_header(
      "/* $gain */\n"
      "#define gian_boffset 4\n"
      "#define gain_bofset 4\n"
      "#define Gain_Bsize 4\n",
      "in/net.h:4:9: warning: gian_boffset is not read: the block above it is that of variable "
      "gain, whose macro is gain_boffset [wrong-name]\n"
      "in/net.h:5:9: warning: gain_bofset is not read: its ending is unknown, and the macro of "
      "variable gain is gain_boffset [wrong-name]\n"
      "in/net.h:6:9: warning: Gain_Bsize is not read: the block above it is that of variable "
      "gain, whose macro is gain_bsize [wrong-name]\n",
      {"--vproc"});
}

TEST_F(LintBlocks, TakesTheBlockThatBeganLastForTheOneAbove) {
  expect_in_header(
      "/* net HMB_output mask */\n"
      "/* net HMB_input data */\n"
      "#define net_dta_H 49\n",
      "in/net.h:5:9: warning: net_dta_H is not read: the block above it is that of input data, "
      "whose macro is net_data_H [wrong-name]\n");
  expect_in_header(
      "/* net HMB_input data */\n"
      "/* net HMB_output mask */\n"
      "#define net_msk_H 49\n",
      "in/net.h:5:9: warning: net_msk_H is not read: the block above it is that of output mask, "
      "whose macro is net_mask_H [wrong-name]\n");
}

}  // namespace
}  // namespace morvane::test

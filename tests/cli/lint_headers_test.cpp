// What morvane lint says about what a header introduces, and about its image.
#include <gtest/gtest.h>

#include "cli/linted_folder.h"

namespace morvane::test {
namespace {

class LintHeaders : public linted_folder {};

TEST_F(LintHeaders, FindsANameThatIsTooLong) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h", std::string("#define net_DAG_NAME \"net\"\n"
                                       "#define net_image_size 5\n") +
                               ("/* net HMB_input " + std::string(512, 'p') + " */\n"));
  expect_findings(1,
                  "in/net.h:3:18: error: the input name has 512 bytes, and at most 511 fit: "
                  "nothing can be packed [name-too-long]\n");
}

// Two threads read a header of more than 1 MiB.
TEST_F(LintHeaders, FindsTheSameInALargeHeader) {
  std::string blank_lines;
  for (int i = 0; i < 1050; ++i) {
    blank_lines += std::string(1000, ' ') + '\n';
  }
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h", std::string("/* net HMB_input early */\n"
                                       "#define net_DAG_NAME \"net\"\n"
                                       "#define net_image_size 5\n"
                                       "/* net HMB_output late */\n"
                                       "#define net_late_W 0x10\n") +
                               blank_lines + "#define net_late_H 0x10\n");
  expect_findings(1,
                  "in/net.h:1:18: error: input early is packed, but not counted: it must come "
                  "after line 2, which names the DAG [miscounted-port]\n"
                  "in/net.h:5:20: warning: 0x10 is not decimal: net_late_W becomes 0 "
                  "[not-decimal]\n"
                  "in/net.h:1056:20: warning: 0x10 is not decimal: net_late_H becomes 0 "
                  "[not-decimal]\n");
}

TEST_F(LintHeaders, FindsAHeaderWithoutADagName) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h", "#define net_image_size 5\n");
  expect_findings(1,
                  "in/net.h:1:1: error: no line has a value for _DAG_NAME: the DAG gets no name, "
                  "no image and no counted ports [no-dag-name]\n");
}

TEST_F(LintHeaders, FindsAnImageThatIsTooShort) {
  folder.write("in/net.dvi", "imag");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  expect_findings(1,
                  "in/net.h:2:24: error: the image has 4 bytes, but the header says 5: nothing can "
                  "be packed [image-too-short]\n");
}

TEST_F(LintHeaders, FindsAnImageThatIsADeviceOrAFolder) {
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  std::filesystem::create_symlink("/dev/zero", folder.path("in/net.dvi"));
  expect_findings(2,
                  "in/net.dvi:1:1: error: the file cannot be read: it is no regular file "
                  "[unreadable-file]\n");
  std::filesystem::remove(folder.path("in/net.dvi"));
  folder.make_folder("in/net.dvi");
  expect_findings(2,
                  "in/net.dvi:1:1: error: the file cannot be read: Is a directory "
                  "[unreadable-file]\n");
}

TEST_F(LintHeaders, FindsAHeaderThatIsADevice) {
  folder.write("in/net.dvi", "image");
  std::filesystem::create_symlink("/dev/null", folder.path("in/net.h"));
  expect_findings(2,
                  "in/net.h:1:1: error: the file cannot be read: it is no regular file, so the DAG "
                  "gets no name and no image [unreadable-file]\n");
}

TEST_F(LintHeaders, FindsAnImageThatIsTooLong) {
  folder.write("in/net.dvi", "image, more");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  expect_findings(
      0,
      "in/net.h:2:24: warning: the image has 11 bytes, but the header says 5; left out at "
      "its end: 6 bytes [image-too-long]\n");
}

TEST_F(LintHeaders, FindsAnImageSizeOf31Bits) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 2147483648\n");
  expect_findings(1,
                  "in/net.h:2:24: error: an image of 2147483648 bytes is too large, at most "
                  "2147483647 fit: nothing can be packed [negative-image-size]\n");
}

TEST_F(LintHeaders, FindsAHeaderWithoutAnImageSize) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_dagbin_start 0\n");
  expect_findings(0,
                  "in/net.h:1:23: warning: the header has no macro for the size of the image: the "
                  "image, 5 bytes, is left out of the package [no-image-size]\n",
                  {"--ignore", "dagbin-outside-image"});
}

TEST_F(LintHeaders, FindsAPortAboveTheDagName) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "/* net HMB_input data */\n"
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  expect_findings(1,
                  "in/net.h:1:18: error: input data is packed, but not counted: it must "
                  "come after line 2, which names the DAG [miscounted-port]\n");
}

TEST_F(LintHeaders, FindsAPortOfBothKinds) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data HMB_output data */\n");
  expect_findings(1,
                  "in/net.h:3:34: error: output data is packed, but not counted: its line also "
                  "names an input, and counts only as that [miscounted-port]\n");
}

TEST_F(LintHeaders, FindsAnSmbBlockOnTheLineOfAVariable) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* $gain SMB_input window */\n");
  expect_findings(1,
                  "in/net.h:3:20: error: SMB window is packed, but its line has a $ too and counts "
                  "as a variable only [miscounted-vproc]\n",
                  {"--vproc"});
}

TEST_F(LintHeaders, FindsADagNameOfDots) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define x_DAG_NAME \"..\"\n"
               "#define .._image_size 5\n");
  expect_findings(
      1, "in/net.h:1:21: error: the DAG's name \"..\" stands for a folder [unsafe-dag-name]\n");
}

TEST_F(LintHeaders, FindsAKeywordInALongerWord) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "#define net_HMB_inputs 2\n");
  expect_findings(0,
                  "in/net.h:3:22: warning: HMB_input in a longer word introduces a block too: "
                  "input s is packed [keyword-in-a-word]\n");
}

TEST_F(LintHeaders, FindsALineThatIsTooLong) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h", std::string("#define net_DAG_NAME \"net\"\n"
                                       "#define net_image_size 5\n") +
                               ("/*" + std::string(1020, '-') + "*/\n"));
  expect_findings(0,
                  "in/net.h:3:1: warning: the line has 1024 bytes, and at most 1023 are read: it "
                  "is ignored [line-too-long]\n");
}

TEST_F(LintHeaders, FindsADagBinaryOutsideItsImage) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "#define net_dagbin_start 5\n");
  expect_findings(0,
                  "in/net.h:3:26: warning: the DAG binary is at 5, outside the image, which has 5 "
                  "bytes from 0 on [dagbin-outside-image]\n");
}

TEST_F(LintHeaders, FindsAMacroThatIsNotRead) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "#define net_dagbin_size 2\n");
  expect_findings(0,
                  "in/net.h:1:23: note: the DAG has no macro for _use_ping_pong_vmem (0), "
                  "_image_start (0), _dagbin_start (0) [default-used]\n"
                  "in/net.h:1:23: note: the header introduces no input and no output [no-ports]\n"
                  "in/net.h:3:9: note: net_dagbin_size belongs to nothing that the header "
                  "introduces, or has an unknown ending: it is not read [unknown-macro]\n",
                  {"--notes"});
}

TEST_F(LintHeaders, FindsAFieldWithoutAMacro) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net SMB_input window */\n");
  expect_findings(0,
                  "in/net.h:1:23: note: the DAG has no macro for _use_ping_pong_vmem (0), "
                  "_image_start (0), _dagbin_start (0) [default-used]\n"
                  "in/net.h:1:23: note: the header introduces no input and no output [no-ports]\n"
                  "in/net.h:3:18: note: SMB window has no macro for _vbase_byte_offset (0) "
                  "[default-used]\n",
                  {"--notes", "--vproc"});
}

TEST_F(LintHeaders, FindsAHeaderWithoutPorts) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  expect_findings(0,
                  "in/net.h:1:23: note: the DAG has no macro for _use_ping_pong_vmem (0), "
                  "_image_start (0), _dagbin_start (0) [default-used]\n"
                  "in/net.h:1:23: note: the header introduces no input and no output [no-ports]\n",
                  {"--notes"});
}

TEST_F(LintHeaders, FindsALastLineWithoutANewline) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5");
  expect_findings(0,
                  "in/net.h:1:23: note: the DAG has no macro for _use_ping_pong_vmem (0), "
                  "_image_start (0), _dagbin_start (0) [default-used]\n"
                  "in/net.h:1:23: note: the header introduces no input and no output [no-ports]\n"
                  "in/net.h:2:24: note: the last line does not end in a newline: it is read all "
                  "the same [no-trailing-newline]\n",
                  {"--notes"});
}

TEST_F(LintHeaders, FindsAPortNameWithAControlCharacter) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input a\001b */\n");
  expect_findings(0,
                  "in/net.h:3:18: warning: the name of input a\\x01b holds a control character "
                  "[control-character]\n");
}

TEST_F(LintHeaders, FindsOnlyTheDagNameThatIsTooLong) {
  const std::string name(128, 'n');
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h", "#define " + name + "_DAG_NAME " + name +
                               "\n"
                               "#define " +
                               name +
                               "_image_size 5\n"
                               "/* net HMB_input data */\n");
  expect_findings(1,
                  "in/net.h:1:147: error: the DAG name has 128 bytes, and at most 127 fit: nothing "
                  "can be packed [name-too-long]\n");
}

}  // namespace
}  // namespace morvane::test

// What morvane lint says about the names in a folder and about DVIs that do not fit together.
#include <gtest/gtest.h>

#include "cli/linted_folder.h"

namespace morvane::test {
namespace {

class LintFolders : public linted_folder {};

TEST_F(LintFolders, FindsAFolderWithoutImages) {
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  expect_findings(1, "in:1:1: error: no file with the extension .dvi can be packed [no-images]\n");
}

TEST_F(LintFolders, FindsAnImageWithoutAHeader) {
  folder.write("in/net.H",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  folder.write("in/net.dvi", "image");
  expect_findings(1,
                  "in/net.dvi:1:1: error: the header net.h is missing: nothing can be packed "
                  "[unpaired-image]\n");
}

TEST_F(LintFolders, FindsAHeaderWithAnUnderscoreBesidesOneWithout) {
  folder.write("in/_b.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  folder.write("in/a.dvi", "image");
  folder.write("in/a.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  folder.write("in/b.dvi", "image");
  expect_findings(1,
                  "in/b.dvi:1:1: warning: the index is 0, as that of a.dvi: the order of the two "
                  "is not defined [repeated-index]\n"
                  "in/b.dvi:1:1: error: the header b.h is missing, and headers with an underscore "
                  "count only if every image has one: nothing can be packed [unpaired-image]\n");
}

TEST_F(LintFolders, FindsAnImageWithoutAnIndex) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  folder.write("in/net_split_.dvi", "image");
  expect_findings(1,
                  "in/net_split_.dvi:1:1: error: the name has _split_, but no index before the "
                  "extension: the image is left out [bad-index]\n");
}

TEST_F(LintFolders, FindsAnIndexThatIsMissing) {
  folder.write("in/net_split_0.dvi", "image");
  folder.write("in/net_split_0.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  folder.write("in/net_split_2.dvi", "image");
  folder.write("in/net_split_2.h",
               "#define b_DAG_NAME \"b\"\n"
               "#define b_image_size 5\n");
  expect_findings(
      1,
      "in:1:1: error: the greatest index is 2, but the number of images is 2; index 1 is "
      "missing: nothing can be packed [disordered-indices]\n");
}

TEST_F(LintFolders, FindsAnImageWithALongName) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  folder.write("in/" + std::string(124, 'n') + ".dvi", "image");
  expect_findings(1,
                  "in/" + std::string(124, 'n') +
                      ".dvi:1:1: error: the name has 128 bytes, and at most 127 can be packed: the "
                      "image is left out [file-name-too-long]\n");
}

TEST_F(LintFolders, FindsTwoDagsOfOneName) {
  folder.write("in/a_split_0.dvi", "image");
  folder.write("in/a_split_0.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  folder.write("in/b_split_1.dvi", "image");
  folder.write("in/b_split_1.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  expect_findings(0,
                  "in/b_split_1.h:1:23: warning: the DAG's name \"net\" is that of a_split_0.h too "
                  "[duplicate-dag-name]\n");
}

TEST_F(LintFolders, FindsTwoDagsOfOneNameWithVproc) {
  folder.write("in/a_split_0.dvi", "image");
  folder.write("in/a_split_0.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  folder.write("in/b_split_1.dvi", "image");
  folder.write("in/b_split_1.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  expect_findings(1,
                  "in/b_split_1.h:1:23: error: the DAG's name \"net\" is that of a_split_0.h too: "
                  "nothing can be packed [duplicate-dag-name]\n",
                  {"--vproc"});
}

TEST_F(LintFolders, FindsTwoImagesOfOneIndex) {
  folder.write("in/a.dvi", "image");
  folder.write("in/a.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  folder.write("in/b.dvi", "image");
  folder.write("in/b.h",
               "#define b_DAG_NAME \"b\"\n"
               "#define b_image_size 5\n");
  expect_findings(0,
                  "in/b.dvi:1:1: warning: the index is 0, as that of a.dvi: the order of the two "
                  "is not defined [repeated-index]\n",
                  {"--ignore", "port-mismatch"});
}

TEST_F(LintFolders, FindsAnIndexThatNoImageHas) {
  folder.write("in/a_split_1.dvi", "image");
  folder.write("in/a_split_1.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  folder.write("in/b_split_1.dvi", "image");
  folder.write("in/b_split_1.h",
               "#define b_DAG_NAME \"b\"\n"
               "#define b_image_size 5\n");
  expect_findings(0,
                  "in:1:1: warning: no image has the index 0, but greater ones exist "
                  "[index-gap]\n",
                  {"--ignore", "repeated-index"});
}

TEST_F(LintFolders, FindsAnInputThatIsNotTheOutputBeforeIt) {
  folder.write("in/a_split_0.dvi", "image");
  folder.write("in/a_split_0.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_output data */\n"
               "#define net_data_W 16\n");
  folder.write("in/b_split_1.dvi", "image");
  folder.write("in/b_split_1.h",
               "#define b_DAG_NAME \"b\"\n"
               "#define b_image_size 5\n"
               "/* b HMB_input data */\n"
               "#define b_data_W 4\n");
  expect_findings(0,
                  "in/b_split_1.h:3:16: warning: input data differs from the output of the same "
                  "name in a_split_0.h: W is 4, not 16 [port-mismatch]\n");
}

TEST_F(LintFolders, FindsAFileThatBelongsToNoImage) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  folder.write("in/notes.txt", "");
  expect_findings(
      0,
      "in/notes.txt:1:1: note: the file belongs to no image: it is not read [unused-file]\n"
      "in/net.h:1:23: note: the DAG has no macro for _use_ping_pong_vmem (0), "
      "_image_start (0), _dagbin_start (0) [default-used]\n"
      "in/net.h:1:23: note: the header introduces no input and no output [no-ports]\n",
      {"--notes"});
}

TEST_F(LintFolders, FindsImagesThatOverlap) {
  folder.write("in/a_split_0.dvi", "image");
  folder.write("in/a_split_0.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n");
  folder.write("in/b_split_1.dvi", "image");
  folder.write("in/b_split_1.h",
               "#define b_DAG_NAME \"b\"\n"
               "#define b_image_size 5\n");
  expect_findings(
      0,
      "in/a_split_0.h:1:23: note: the DAG has no macro for _use_ping_pong_vmem (0), "
      "_image_start (0), _dagbin_start (0) [default-used]\n"
      "in/a_split_0.h:1:23: note: the header introduces no input and no output [no-ports]\n"
      "in/b_split_1.h:1:21: note: the DAG has no macro for _use_ping_pong_vmem (0), "
      "_image_start (0), _dagbin_start (0) [default-used]\n"
      "in/b_split_1.h:1:21: note: the header introduces no input and no output [no-ports]\n"
      "in/b_split_1.h:1:21: note: the image, 5 bytes from 0 on, shares addresses with "
      "that of a_split_0.h [images-overlap]\n",
      {"--notes"});
}

}  // namespace
}  // namespace morvane::test

#include "headers/dag_descriptions.h"

#include <gtest/gtest.h>

#include "harness/scratch_folder.h"
#include "printed_text.h"

namespace morvane {
namespace {

using test::length_message;
using test::line_of_length;
using test::printed_by;
using test::scratch_folder;

/// The description of one header of this text, at index 0.
dvi_desc described(std::string_view header) {
  const scratch_folder folder;
  folder.write("a.h", header);
  std::vector<dvi_desc> dvis;
  EXPECT_EQ(parse_dag_descriptions(dvis, folder.path(), {{.name = "a.h", .index = 0}}), 0);
  EXPECT_EQ(dvis.size(), 1U);
  return dvis.empty() ? dvi_desc{} : dvis[0];
}

TEST(ParseDagDescriptions, CountsPortsAndAddsUpThePackageSize) {
  const dvi_desc dvi = described(
      "#define dag0_DAG_NAME dag0\n"
      "/* dag0 HMB_input a */\n"
      "/* dag0 HMB_input b */\n"
      "/* dag0 HMB_output c */\n"
      "#define dag0_image_size 4096\n");
  EXPECT_STREQ(dvi.dag_name, "dag0");
  EXPECT_EQ(dvi.input_num, 2U);
  EXPECT_EQ(dvi.output_num, 1U);
  EXPECT_EQ(dvi.dvi_pkg_size, 7336U);
}

TEST(ParseDagDescriptions, ReadsTheValuesOfADag) {
  const dvi_desc dvi = described(
      "#define dag0_DAG_NAME\t\"dag0\"\n"
      "#define dag0_use_ping_pong_vmem\t1\n"
      "#define dag0_image_start\t65536\n"
      "#define dag0_image_size\t100\n"
      "#define dag0_dagbin_start\t131072\n");
  EXPECT_STREQ(dvi.dag_name, "dag0");
  EXPECT_EQ(dvi.dvi_ppv, 1);
  EXPECT_EQ(dvi.dvi_img_vaddr, 65536U);
  EXPECT_EQ(dvi.dvi_img_size, 100U);
  EXPECT_EQ(dvi.dvi_dag_vaddr, 131072U);
  EXPECT_EQ(dvi.dvi_pkg_size, 100U);
}

TEST(ParseDagDescriptions, CutsValuesToTheirFields) {
  const dvi_desc dvi = described(
      "d_DAG_NAME d\nd_use_ping_pong_vmem 258\nd_image_start 4294967297\nd_dagbin_start -1\n");
  EXPECT_EQ(dvi.dvi_ppv, 2);
  EXPECT_EQ(dvi.dvi_img_vaddr, 1U);
  EXPECT_EQ(dvi.dvi_dag_vaddr, 4294967295U);
}

TEST(ParseDagDescriptions, WrapsThePackageSizeAt32Bits) {
  EXPECT_EQ(described("d_DAG_NAME d\nHMB_input a\nd_image_size 4294967295\n").dvi_pkg_size, 1079U);
}

TEST(ParseDagDescriptions, ReadsHexadecimalAsZero) {
  EXPECT_EQ(described("d_DAG_NAME d\n#define d_image_size 0x1000\n").dvi_img_size, 0U);
  EXPECT_EQ(described("d_DAG_NAME d\n#define d_image_size abc\n").dvi_img_size, 0U);
}

TEST(ParseDagDescriptions, IgnoresLinesBeforeTheDagName) {
  const dvi_desc dvi =
      described("/* d HMB_input a */\nd_image_size 5\nd_DAG_NAME d\n/* d HMB_output b */\n");
  EXPECT_EQ(dvi.input_num, 0U);
  EXPECT_EQ(dvi.output_num, 1U);
  EXPECT_EQ(dvi.dvi_img_size, 0U);
}

TEST(ParseDagDescriptions, IgnoresTheRestOfTheLineOfTheDagName) {
  EXPECT_EQ(described("d_DAG_NAME d HMB_input a d_image_size 5\n").input_num, 0U);
}

TEST(ParseDagDescriptions, PassesOverADagNameWithoutAValueAndIgnoresASecondOne) {
  const dvi_desc dvi =
      described("#define d_DAG_NAME\nd_DAG_NAME d\ne_DAG_NAME e\ne_image_size 5\n");
  EXPECT_STREQ(dvi.dag_name, "d");
  EXPECT_EQ(dvi.dvi_img_size, 0U);
}

TEST(ParseDagDescriptions, CountsALineOnceAsAnInputBeforeAnOutput) {
  const dvi_desc dvi = described(
      "d_DAG_NAME d\n"
      "HMB_output a HMB_input b\n"
      "HMB_input\n"
      "HMB_input_0 d_image_size 5\n"
      "HMB_output a d_image_size 6\n");
  EXPECT_EQ(dvi.input_num, 2U);
  EXPECT_EQ(dvi.output_num, 1U);
  EXPECT_EQ(dvi.dvi_img_size, 0U);
}

TEST(ParseDagDescriptions, TriesTheOutputKeywordWhenNothingFollowsTheInputKeyword) {
  const dvi_desc dvi = described("d_DAG_NAME d\nHMB_output a HMB_input\n");
  EXPECT_EQ(dvi.input_num, 0U);
  EXPECT_EQ(dvi.output_num, 1U);
}

TEST(ParseDagDescriptions, LetsTheFirstKeyOfALineDecideInItsOrder) {
  const dvi_desc dvi = described(
      "d_DAG_NAME d\n"
      "d_image_start 2 d_use_ping_pong_vmem 1\n"
      "d_image_size 3 d_image_start 4\n"
      "d_dagbin_start 6 d_image_size 5\n");
  EXPECT_EQ(dvi.dvi_ppv, 1);
  EXPECT_EQ(dvi.dvi_img_vaddr, 4U);
  EXPECT_EQ(dvi.dvi_img_size, 5U);
  EXPECT_EQ(dvi.dvi_dag_vaddr, 0U);
}

TEST(ParseDagDescriptions, LetsALaterLineWin) {
  EXPECT_EQ(described("d_DAG_NAME d\nd_image_size 5\nd_image_size 6\n").dvi_img_size, 6U);
}

TEST(ParseDagDescriptions, FindsAMacroInsideALongerWord) {
  EXPECT_EQ(described("d_DAG_NAME d\n/*old_image_size 5*/\n").dvi_img_size, 5U);
}

TEST(ParseDagDescriptions, KeepsACarriageReturnInTheNameAndThenFindsNoValue) {
  const dvi_desc dvi = described("#define d_DAG_NAME d\r\n#define d_image_size 5\r\n");
  EXPECT_STREQ(dvi.dag_name, "d\r");
  EXPECT_EQ(dvi.dvi_img_size, 0U);
}

TEST(ParseDagDescriptions, HasACleanNameWhenTheCarriageReturnFollowsAQuote) {
  const dvi_desc dvi = described("#define d_DAG_NAME \"d\"\r\n#define d_image_size 5\r\n");
  EXPECT_STREQ(dvi.dag_name, "d");
  EXPECT_EQ(dvi.dvi_img_size, 5U);
}

TEST(ParseDagDescriptions, ReportsAndSkipsOverLongLines) {
  const std::string first = line_of_length("x_DAG_NAME x", 1024);
  const std::string second = line_of_length("d_image_size 5", 1200);
  EXPECT_EQ(printed_by([&] {
              const dvi_desc dvi = described(first + "\nd_DAG_NAME d\n" + second);
              EXPECT_STREQ(dvi.dag_name, "d");
              EXPECT_EQ(dvi.dvi_img_size, 0U);
            }),
            length_message("LINE_LEN", first) + length_message("LINE_LEN", second));
}

TEST(ParseDagDescriptions, ReadsLinesOf1023Characters) {
  EXPECT_EQ(printed_by([] {
              const dvi_desc dvi = described(line_of_length("d_DAG_NAME d", 1023) + "\n" +
                                             line_of_length("d_image_size 5", 1023));
              EXPECT_STREQ(dvi.dag_name, "d");
              EXPECT_EQ(dvi.dvi_img_size, 5U);
            }),
            "");
}

TEST(ParseDagDescriptions, TakesADagNameOf127Characters) {
  const std::string name(127, 'n');
  const dvi_desc dvi = described("_DAG_NAME " + name + "\n" + name + "_image_size 5\n");
  EXPECT_EQ(dvi.dag_name, name);
  EXPECT_EQ(dvi.dvi_img_size, 5U);
}

TEST(ParseDagDescriptions, StopsAtADagNameOf128Characters) {
  const scratch_folder folder;
  const std::string name(128, 'n');
  folder.write("a.h", "a_DAG_NAME a\n");
  folder.write("b.h", "_DAG_NAME " + name + "\n");
  folder.write("c.h", "c_DAG_NAME c\n");
  std::vector<dvi_desc> dvis;
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(parse_dag_descriptions(dvis, folder.path(),
                                               {{.name = "a.h"}, {.name = "b.h"}, {.name = "c.h"}}),
                        -1);
            }),
            length_message("VAR_NAME", name));
  ASSERT_EQ(dvis.size(), 1U);
  EXPECT_STREQ(dvis[0].dag_name, "a");
}

TEST(ParseDagDescriptions, GivesARecordWithoutNameForAHeaderThatSaysNothing) {
  const scratch_folder folder;
  folder.make_folder("folder.h");
  folder.write("empty.h", "");
  folder.write("unnamed.h", "HMB_input a\n");
  std::vector<dvi_desc> dvis;
  const std::string printed = printed_by([&] {
    EXPECT_EQ(parse_dag_descriptions(dvis, folder.path(),
                                     {{.name = "missing.h", .index = 4},
                                      {.name = "folder.h", .index = 5},
                                      {.name = "empty.h", .index = 6},
                                      {.name = "unnamed.h", .index = 7}}),
              0);
  });
  EXPECT_EQ(printed, "");
  ASSERT_EQ(dvis.size(), 4U);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(dvis[i].dvi_id, 4 + i);
    EXPECT_EQ(dvis[i].vproc_id, i);
    EXPECT_STREQ(dvis[i].dag_name, "");
    EXPECT_EQ(dvis[i].input_num, 0U);
    EXPECT_EQ(dvis[i].dvi_pkg_size, 0U);
  }
}

TEST(ParseDagDescriptions, CutsIndexAndPositionToTheirLowByte) {
  const scratch_folder folder;
  folder.write("a.h", "a_DAG_NAME a\n");
  std::vector<dvi_desc> dvis;
  input_list headers;
  for (int i = 0; i < 301; ++i) {
    headers.add({.name = "a.h", .index = 256});
  }
  EXPECT_EQ(parse_dag_descriptions(dvis, folder.path(), headers), 0);
  ASSERT_EQ(dvis.size(), 301U);
  EXPECT_EQ(dvis[300].dvi_id, 0);
  EXPECT_EQ(dvis[255].vproc_id, 255);
  EXPECT_EQ(dvis[256].vproc_id, 0);
  EXPECT_EQ(dvis[300].vproc_id, 44);
}

TEST(ParseDagDescriptions, AppendsNothingForAnEmptyList) {
  std::vector<dvi_desc> dvis;
  EXPECT_EQ(parse_dag_descriptions(dvis, "missing", {}), 0);
  EXPECT_TRUE(dvis.empty());
}

}  // namespace
}  // namespace morvane

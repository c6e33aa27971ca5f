#include "headers/vproc_descriptions.h"

#include <gtest/gtest.h>

#include "harness/scratch_folder.h"
#include "printed_text.h"

namespace morvane {
namespace {

using test::length_message;
using test::line_of_length;
using test::printed_by;
using test::scratch_folder;

/// The counts of one header of this text.
vproc_desc counted(std::string_view header) {
  const scratch_folder folder;
  folder.write("a.h", header);
  std::vector<vproc_desc> vprocs;
  EXPECT_EQ(parse_vproc_description(vprocs, folder.path(), {{.name = "a.h"}}), 0);
  EXPECT_EQ(vprocs.size(), 1U);
  return vprocs.empty() ? vproc_desc{} : vprocs[0];
}

void expect_counts(std::string_view header, std::uint32_t variables, std::uint32_t smbs,
                   std::uint32_t size) {
  const vproc_desc vproc = counted(header);
  EXPECT_EQ(vproc.variable_num, variables) << header;
  EXPECT_EQ(vproc.smb_num, smbs) << header;
  EXPECT_EQ(vproc.vproc_records_size, size) << header;
}

std::vector<smb_desc> parsed_blocks(std::string_view header) {
  std::vector<smb_desc> smbs;
  EXPECT_EQ(parse_smb_descriptions(smbs, header), 0);
  return smbs;
}

TEST(ParseVprocDescription, CountsNothingInAHeaderWithoutVprocRecords) {
  expect_counts("#define net_DAG_NAME net\n/* net HMB_input a */\n", 0, 0, 0);
}

TEST(ParseVprocDescription, AddsUpTheSizeOfTheRecords) {
  expect_counts(
      "/* $gain */\n#define gain_boffset 1\n/* $bias */\n"
      "/* net SMB_input a */\n/* net SMB_input b */\n/* net SMB_input c */\n",
      2, 3, 668);
}

TEST(ParseVprocDescription, CountsALineWithBothAsAVariable) {
  expect_counts("/* net SMB_input a $gain */\n", 1, 0, 136);
}

TEST(ParseVprocDescription, CountsAnSmbWhenNothingFollowsTheDollarSign) {
  expect_counts("/* net SMB_input a $ */\n", 0, 1, 132);
}

TEST(ParseVprocDescription, CountsNothingWhenNothingFollowsTheKeyword) {
  expect_counts("/* net SMB_input */\n/* $ */\n$\nSMB_input", 0, 0, 0);
}

TEST(ParseVprocDescription, SkipsBlankAndOverLongLines) {
  const std::string line = line_of_length("$gain", 1024);
  EXPECT_EQ(
      printed_by([&] { expect_counts(line + "\n\n" + line_of_length("$a", 1023), 1, 0, 136); }),
      length_message("LINE_LEN", line));
}

TEST(ParseVprocDescription, GivesOneRecordPerHeaderAlsoForOneThatCannotBeRead) {
  const scratch_folder folder;
  folder.write("a.h", "$gain\n");
  folder.make_folder("folder.h");
  folder.write("c.h", "SMB_input a\n");
  std::vector<vproc_desc> vprocs(1);
  EXPECT_EQ(
      printed_by([&] {
        EXPECT_EQ(
            parse_vproc_description(
                vprocs, folder.path(),
                {{.name = "a.h"}, {.name = "missing.h"}, {.name = "folder.h"}, {.name = "c.h"}}),
            0);
      }),
      "");
  ASSERT_EQ(vprocs.size(), 5U);
  EXPECT_EQ(vprocs[1].vproc_records_size, 136U);
  EXPECT_EQ(vprocs[2].vproc_records_size, 0U);
  EXPECT_EQ(vprocs[3].vproc_records_size, 0U);
  EXPECT_EQ(vprocs[4].vproc_records_size, 132U);
}

TEST(ParseSmbDescriptions, FindsNothingWithoutTheKeyword) {
  EXPECT_TRUE(parsed_blocks("").empty());
  EXPECT_TRUE(parsed_blocks("/* net HMB_input a */\n/* $gain */\n/* net SMB_input */\n").empty());
}

TEST(ParseSmbDescriptions, ReadsNameAndOffset) {
  const auto smbs =
      parsed_blocks("/* net SMB_input bias */\n#define net_bias_vbase_byte_offset 4096\n");
  ASSERT_EQ(smbs.size(), 1U);
  EXPECT_STREQ(smbs[0].smb_name, "bias");
  EXPECT_EQ(smbs[0].vbase_byte_offset, 4096U);
}

TEST(ParseSmbDescriptions, LeavesTheOffsetZeroWithoutItsMacro) {
  const auto smbs = parsed_blocks("SMB_input a\nSMB_input b\nnet_b_vbase_byte_offset 5\n");
  ASSERT_EQ(smbs.size(), 2U);
  EXPECT_STREQ(smbs[0].smb_name, "a");
  EXPECT_EQ(smbs[0].vbase_byte_offset, 0U);
  EXPECT_STREQ(smbs[1].smb_name, "b");
  EXPECT_EQ(smbs[1].vbase_byte_offset, 5U);
}

TEST(ParseSmbDescriptions, EndsABlockAtAMacroWithoutUnderscoreBeforeTheName) {
  const auto smbs =
      parsed_blocks("SMB_input a\n#define a_vbase_byte_offset 5\nnet_a_vbase_byte_offset 6\n");
  ASSERT_EQ(smbs.size(), 1U);
  EXPECT_EQ(smbs[0].vbase_byte_offset, 0U);
}

TEST(ParseSmbDescriptions, IgnoresOtherLinesOfTheBlock) {
  EXPECT_EQ(parsed_blocks("SMB_input a\nnet_a_other 1\nnet_a_vbase_byte_offset 6\n")
                .at(0)
                .vbase_byte_offset,
            6U);
}

TEST(ParseSmbDescriptions, ReadsOffsetsAsDecimalNumbersOf32Bits) {
  EXPECT_EQ(parsed_blocks("SMB_input a\n_a_vbase_byte_offset 0x10\n").at(0).vbase_byte_offset, 0U);
  EXPECT_EQ(parsed_blocks("SMB_input a\n_a_vbase_byte_offset 12abc\n").at(0).vbase_byte_offset,
            12U);
  EXPECT_EQ(parsed_blocks("SMB_input a\n_a_vbase_byte_offset 4294967298\n").at(0).vbase_byte_offset,
            2U);
}

TEST(ParseSmbDescriptions, TakesANameOf127Characters) {
  const std::string name(127, 'n');
  EXPECT_EQ(parsed_blocks("SMB_input " + name + "\n").at(0).smb_name, name);
}

TEST(ParseSmbDescriptions, StopsAtANameOf128Characters) {
  const std::string name(128, 'n');
  std::vector<smb_desc> smbs;
  EXPECT_EQ(
      printed_by([&] {
        EXPECT_EQ(
            parse_smb_descriptions(smbs, "SMB_input a\nSMB_input " + name + "\nSMB_input b\n"), -1);
      }),
      length_message("VAR_NAME", name));
  ASSERT_EQ(smbs.size(), 1U);
  EXPECT_STREQ(smbs[0].smb_name, "a");
}

}  // namespace
}  // namespace morvane

#include "headers/block_reader.h"

#include <gtest/gtest.h>

#include <string>

#include "printed_text.h"

namespace morvane {
namespace {

using test::length_message;
using test::line_of_length;
using test::printed_by;

constexpr block_format smb_blocks{.keyword = "SMB_input",
                                  .marker_lead = "_",
                                  .name_limit = var_name_limit,
                                  .name_offset = offsetof(smb_desc, smb_name),
                                  .macros = smb_macros};

/// The result of reading a block "a", and the rest of the text.
struct read_result {
  int status = 0;
  smb_desc smb{};
  std::string rest;
};

read_result read_a(std::string_view text) {
  read_result result;
  line_reader lines{text};
  result.status = read_block(lines, smb_blocks, "a", bytes_of(result.smb));
  result.rest = text.substr(lines.next);
  return result;
}

TEST(ReadBlock, FillsTheRecordUpToTheEndOfTheText) {
  const read_result result = read_a("#define net_a_vbase_byte_offset 64");
  EXPECT_EQ(result.status, 0);
  EXPECT_STREQ(result.smb.smb_name, "a");
  EXPECT_EQ(result.smb.vbase_byte_offset, 64U);
  EXPECT_EQ(result.rest, "");
}

TEST(ReadBlock, LeavesTheLineWithoutMarkerToBeReadAgain) {
  const read_result result = read_a("net_a_vbase_byte_offset 64\nnet_b_x 1\nnet_a_x 2\n");
  EXPECT_EQ(result.smb.vbase_byte_offset, 64U);
  EXPECT_EQ(result.rest, "net_b_x 1\nnet_a_x 2\n");
}

TEST(ReadBlock, LeavesTheLineWithTheKeywordToBeReadAgain) {
  EXPECT_EQ(read_a("net_a_x\nnet_a_x SMB_input\n").rest, "net_a_x SMB_input\n");
  EXPECT_EQ(read_a("net_a_xSMB_input").rest, "net_a_xSMB_input");
}

TEST(ReadBlock, AsksForAnUnderscoreOnBothSidesOfTheName) {
  for (const char* line : {"neta_x", "net_ax", "_a", "a_", "net_b"}) {
    EXPECT_EQ(read_a(line).rest, line);
  }
  EXPECT_EQ(read_a("_a_").rest, "");
}

TEST(ReadBlock, FindsTheMarkerAtALaterPlaceOfTheName) {
  EXPECT_EQ(read_a("a data_a_x").rest, "");
}

TEST(ReadBlock, PassesOverBlankLines) {
  const read_result result = read_a("\n \t\r\nnet_a_vbase_byte_offset 64\n\n");
  EXPECT_EQ(result.smb.vbase_byte_offset, 64U);
  EXPECT_EQ(result.rest, "");
}

TEST(ReadBlock, LeavesBlankLinesBeforeTheEndingLineToBeReadAgain) {
  EXPECT_EQ(read_a("net_a_x\n\n \nend\n").rest, "\n \nend\n");
  EXPECT_EQ(read_a("\nend\n").rest, "\nend\n");
}

TEST(ReadBlock, ReportsAnOverLongLineAndPassesOverIt) {
  const std::string line = line_of_length("net_a_vbase_byte_offset 64", 1024);
  EXPECT_EQ(printed_by([&] {
              const read_result result = read_a(line + "\nnet_a_x\n");
              EXPECT_EQ(result.smb.vbase_byte_offset, 0U);
              EXPECT_EQ(result.rest, "");
            }),
            length_message("LINE_LEN", line));
}

TEST(ReadBlock, LetsALaterMacroWin) {
  EXPECT_EQ(read_a("net_a_vbase_byte_offset 1\nnet_a_vbase_byte_offset 2\n").smb.vbase_byte_offset,
            2U);
}

TEST(ReadBlock, RefusesANameOverItsLimit) {
  const std::string name(128, 'n');
  smb_desc smb{};
  line_reader lines{"net_a_x\n"};
  EXPECT_EQ(printed_by([&] { EXPECT_EQ(read_block(lines, smb_blocks, name, bytes_of(smb)), -1); }),
            length_message("VAR_NAME", name));
}

TEST(ReadBlocks, BeginsEachRecordAsTheEmptyOneAndKeepsEarlierRecords) {
  smb_desc empty{};
  empty.vbase_byte_offset = 7;
  std::vector<smb_desc> smbs(1);
  EXPECT_EQ(
      read_blocks("SMB_input a\nnet_a_vbase_byte_offset 1\nSMB_input b\n", smb_blocks, empty, smbs),
      0);
  ASSERT_EQ(smbs.size(), 3U);
  EXPECT_STREQ(smbs[0].smb_name, "");
  EXPECT_STREQ(smbs[1].smb_name, "a");
  EXPECT_EQ(smbs[1].vbase_byte_offset, 1U);
  EXPECT_STREQ(smbs[2].smb_name, "b");
  EXPECT_EQ(smbs[2].vbase_byte_offset, 7U);
}

TEST(ReadBlocks, StopsAtANameThatIsTooLongWithoutItsRecord) {
  const std::string name(128, 'n');
  std::vector<smb_desc> smbs;
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(read_blocks("SMB_input a\nSMB_input " + name + "\nSMB_input b\n",
                                    smb_blocks, smb_desc{}, smbs),
                        -1);
            }),
            length_message("VAR_NAME", name));
  ASSERT_EQ(smbs.size(), 1U);
  EXPECT_STREQ(smbs[0].smb_name, "a");
}

}  // namespace
}  // namespace morvane

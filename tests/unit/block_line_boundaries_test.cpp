// Ports, SMBs and variables have this in common: where their blocks begin and end, and which lines
// are read a second time.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "headers/port_descriptions.h"
#include "headers/vproc_descriptions.h"
#include "headers/vproc_variables.h"
#include "printed_text.h"

namespace morvane {
namespace {

using test::length_message;
using test::line_of_length;
using test::printed_by;

/// Blocks that were read: the name of each and its number.
using blocks = std::vector<std::pair<std::string, std::uint32_t>>;

blocks parse_ports(std::string_view header) {
  std::vector<port_desc> ports;
  EXPECT_EQ(parse_port_descriptions(ports, header, input_ports), 0);
  blocks found;
  for (const port_desc& port : ports) {
    found.emplace_back(text_of(port.port_name), port.W);
  }
  return found;
}

blocks parse_smbs(std::string_view header) {
  std::vector<smb_desc> smbs;
  EXPECT_EQ(parse_smb_descriptions(smbs, header), 0);
  blocks found;
  for (const smb_desc& smb : smbs) {
    found.emplace_back(text_of(smb.smb_name), smb.vbase_byte_offset);
  }
  return found;
}

blocks parse_variables(std::string_view header) {
  std::vector<var_desc> variables;
  EXPECT_EQ(parse_vproc_variables(variables, header), 0);
  blocks found;
  for (const var_desc& variable : variables) {
    found.emplace_back(text_of(variable.var), variable.bsize);
  }
  return found;
}

struct block_kind {
  const char* name;
  blocks (*parse)(std::string_view header);
  std::string keyword;  // with the characters before a name
  std::string suffix;   // of the macro
};

/// Shows the kind in lists of tests.
void PrintTo(const block_kind& kind, std::ostream* out) {
  *out << kind.name;
}

class BlockLines : public testing::TestWithParam<block_kind> {
 protected:
  static std::string begin(const std::string& name) {
    return "/* net " + GetParam().keyword + name + " */";
  }
  static std::string number(const std::string& name, const std::string& value) {
    return "#define net_" + name + GetParam().suffix + " " + value;
  }
  static blocks parse(std::string_view header) { return GetParam().parse(header); }
};

TEST_P(BlockLines, ReadALastEndingLineWithoutLineBreakAgain) {
  EXPECT_EQ(parse(begin("a") + "\n" + number("a", "7") + "\n" + begin("b")),
            (blocks{{"a", 7}, {"b", 0}}));
  EXPECT_EQ(parse(begin("a") + "\n\n" + begin("b")), (blocks{{"a", 0}, {"b", 0}}));
  EXPECT_EQ(parse(begin("a") + "\n" + number("a", "7") + "\n/* end */"), (blocks{{"a", 7}}));
}

TEST_P(BlockLines, TakeALastLineWithoutLineBreakIntoTheBlock) {
  EXPECT_EQ(parse(begin("a") + "\n" + number("a", "7")), (blocks{{"a", 7}}));
  EXPECT_EQ(parse(begin("a")), (blocks{{"a", 0}}));
}

TEST_P(BlockLines, MayBe1023CharactersLong) {
  EXPECT_EQ(printed_by([] {
              EXPECT_EQ(parse(line_of_length(begin("a"), 1023) + "\n" +
                              line_of_length(number("a", "7"), 1023) + "\n" +
                              line_of_length(begin("b"), 1023)),
                        (blocks{{"a", 7}, {"b", 0}}));
            }),
            "");
}

TEST_P(BlockLines, BeginNoBlockWhenOverLong) {
  for (const std::size_t length : {1024U, 1200U}) {
    const std::string line = line_of_length(begin("a"), length);
    EXPECT_EQ(printed_by([&] { EXPECT_EQ(parse(line + "\n" + number("a", "7")), blocks{}); }),
              length_message("LINE_LEN", line));
  }
}

TEST_P(BlockLines, AreReportedOnceWhenOverLongBeforeABlock) {
  const std::string line(1024, 'y');
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(parse(line + "\n" + begin("a")), (blocks{{"a", 0}}));
            }),
            length_message("LINE_LEN", line));
}

TEST_P(BlockLines, AreReportedOnceWhenOverLongInsideABlock) {
  for (const std::size_t length : {1024U, 1200U}) {
    const std::string line = line_of_length(number("a", "5"), length);
    EXPECT_EQ(printed_by([&] {
                EXPECT_EQ(parse(begin("a") + "\n" + line + "\n" + number("a", "7") + "\n"),
                          (blocks{{"a", 7}}));
              }),
              length_message("LINE_LEN", line));
  }
}

TEST_P(BlockLines, AreReportedTwiceWhenOverLongBetweenABlockAndTheLineThatEndsIt) {
  for (const std::size_t length : {1024U, 1200U}) {
    const std::string line(length, 'y');
    const std::string message = length_message("LINE_LEN", line);
    EXPECT_EQ(printed_by([&] {
                EXPECT_EQ(parse(begin("a") + "\n" + number("a", "7") + "\n" + line + "\nend\n"),
                          (blocks{{"a", 7}}));
              }),
              message + message);
    EXPECT_EQ(printed_by([&] {
                EXPECT_EQ(parse(begin("a") + "\n" + line + "\n\n" + line + "\n" + begin("b")),
                          (blocks{{"a", 0}, {"b", 0}}));
              }),
              message + message + message + message);
  }
}

TEST_P(BlockLines, AreReportedOnceWhenOverLongAtTheEndOfTheFile) {
  const std::string line(1024, 'y');
  const std::string block = begin("a") + "\n" + number("a", "7") + "\n";
  for (const char* end : {"", "\n", "\n\n \n"}) {
    EXPECT_EQ(printed_by([&] {
                EXPECT_EQ(parse(block + line + end), (blocks{{"a", 7}}));
              }),
              length_message("LINE_LEN", line));
  }
}

TEST_P(BlockLines, AreReportedOnceWhenOverLongAfterTheLineThatEndsABlock) {
  const std::string line(1024, 'y');
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(parse(begin("a") + "\nend\n" + line + "\n" + begin("b")),
                        (blocks{{"a", 0}, {"b", 0}}));
            }),
            length_message("LINE_LEN", line));
}

TEST_P(BlockLines, MayEndWithACarriageReturn) {
  EXPECT_EQ(parse(begin("a") + "\r\n\r\n" + number("a", "7") + "\r\n" + begin("b") + "\r\n"),
            (blocks{{"a", 7}, {"b", 0}}));
}

TEST_P(BlockLines, KeepTheCarriageReturnInANameThatEndsThem) {
  EXPECT_EQ(parse(GetParam().keyword + "a\r\n" + number("a", "7") + "\r\n"), (blocks{{"a\r", 0}}));
}

TEST_P(BlockLines, AreBlankWhenTheyBeginWithANul) {
  const std::string nul(1, '\0');
  EXPECT_EQ(parse(nul + begin("a") + "\n" + begin("b") + "\n" + nul + "end\n" + number("b", "7")),
            (blocks{{"b", 7}}));
}

TEST_P(BlockLines, EndTheirTokensAtANulButNotTheSearch) {
  const std::string nul(1, '\0');
  EXPECT_EQ(parse("x" + nul + begin("a" + nul + "b") + "\nx" + nul + number("a", "7" + nul + "8")),
            (blocks{{"a", 7}}));
}

TEST_P(BlockLines, MayHoldHighBytes) {
  EXPECT_EQ(parse(begin("\xC3\xA9\xFF") + "\n" + number("\xC3\xA9\xFF", "7") + "\n\xFF\n"),
            (blocks{{"\xC3\xA9\xFF", 7}}));
}

TEST_P(BlockLines, BelongToABlockUnderANameThatOverlapsItself) {
  EXPECT_EQ(parse(begin("aa") + "\n#define net_aa_x aaa" + GetParam().suffix + " 7\n"),
            (blocks{{"aa", 7}}));
}

INSTANTIATE_TEST_SUITE_P(, BlockLines,
                         testing::Values(block_kind{"Ports", parse_ports, "HMB_input ", "_W"},
                                         block_kind{"Smbs", parse_smbs, "SMB_input ",
                                                    "_vbase_byte_offset"},
                                         block_kind{"Variables", parse_variables, "$", "_bsize"}),
                         [](const auto& kind) { return kind.param.name; });

}  // namespace
}  // namespace morvane

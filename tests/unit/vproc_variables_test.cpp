#include "headers/vproc_variables.h"

#include <gtest/gtest.h>

#include "printed_text.h"

namespace morvane {
namespace {

using test::length_message;
using test::printed_by;

std::vector<var_desc> parsed_variables(std::string_view header) {
  std::vector<var_desc> variables;
  EXPECT_EQ(parse_vproc_variables(variables, header), 0);
  return variables;
}

void expect_variable(const var_desc& variable, std::string_view name, std::uint32_t boffset,
                     std::uint32_t bsize) {
  EXPECT_EQ(text_of(variable.var), name);
  EXPECT_EQ(variable.boffset, boffset);
  EXPECT_EQ(variable.bsize, bsize);
}

TEST(ParseVprocVariables, FindsNothingWithoutTheDollarSign) {
  EXPECT_TRUE(parsed_variables("").empty());
  EXPECT_TRUE(parsed_variables("#define gain_boffset 1\n/* net SMB_input a */\n/* $ */\n").empty());
}

TEST(ParseVprocVariables, ReadsNameOffsetAndSize) {
  const auto variables =
      parsed_variables("/* $gain */\n#define gain_boffset 8\n#define gain_bsize 16");
  ASSERT_EQ(variables.size(), 1U);
  expect_variable(variables[0], "gain", 8, 16);
}

TEST(ParseVprocVariables, LeavesAVariableWithoutMacrosAtZero) {
  const auto variables = parsed_variables("$a\n$b\nb_bsize 5\n");
  ASSERT_EQ(variables.size(), 2U);
  expect_variable(variables[0], "a", 0, 0);
  expect_variable(variables[1], "b", 0, 5);
}

TEST(ParseVprocVariables, KeepsALineOfAnotherObjectThatHoldsItsMarkerInTheBlock) {
  const auto variables = parsed_variables(
      "$gain\ngain_boffset 1\n#define net_again_vbase_byte_offset 9\ngain_bsize 2\n");
  ASSERT_EQ(variables.size(), 1U);
  expect_variable(variables[0], "gain", 1, 2);
}

TEST(ParseVprocVariables, ReadsAMacroOfAnotherObjectThatEndsInItsOwn) {
  expect_variable(parsed_variables("$gain\nagain_bsize 3\n").at(0), "gain", 0, 3);
}

TEST(ParseVprocVariables, AsksForAnUnderscoreAfterTheNameOnly) {
  expect_variable(parsed_variables("$a\na_bsize 3\n").at(0), "a", 0, 3);
  expect_variable(parsed_variables("$a\n#define ab 1\na_bsize 3\n").at(0), "a", 0, 0);
}

TEST(ParseVprocVariables, BeginsANewVariableAtADollarSignInsideABlock) {
  const auto variables = parsed_variables("$a\na_boffset 1\n/* a_ $b */\na_bsize 2\n");
  ASSERT_EQ(variables.size(), 2U);
  expect_variable(variables[0], "a", 1, 0);
  expect_variable(variables[1], "b", 0, 0);
}

TEST(ParseVprocVariables, EndsABlockAtADollarSignWithoutAName) {
  const auto variables = parsed_variables("$a\na_boffset 1\na_ $\na_bsize 2\n");
  ASSERT_EQ(variables.size(), 1U);
  expect_variable(variables[0], "a", 1, 0);
}

TEST(ParseVprocVariables, TriesTheOffsetBeforeTheSize) {
  expect_variable(parsed_variables("$a\na_bsize 1 a_boffset 2\n").at(0), "a", 2, 0);
}

TEST(ParseVprocVariables, ReadsDecimalNumbersOf32Bits) {
  expect_variable(parsed_variables("$a\na_boffset 0x10\na_bsize 12abc\n").at(0), "a", 0, 12);
  expect_variable(parsed_variables("$a\na_boffset -1\na_bsize 4294967297\n").at(0), "a",
                  4294967295U, 1);
}

TEST(ParseVprocVariables, LetsALaterMacroWin) {
  expect_variable(parsed_variables("$a\na_bsize 1\na_bsize 2\n").at(0), "a", 0, 2);
}

TEST(ParseVprocVariables, TakesANameOf127Characters) {
  const std::string name(127, 'n');
  expect_variable(parsed_variables("$" + name + "\n" + name + "_bsize 4\n").at(0), name, 0, 4);
}

TEST(ParseVprocVariables, StopsAtANameOf128Characters) {
  const std::string name(128, 'n');
  std::vector<var_desc> variables;
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(parse_vproc_variables(variables, "$a\n$" + name + "\n$b\n"), -1);
            }),
            length_message("VAR_NAME", name));
  ASSERT_EQ(variables.size(), 1U);
  expect_variable(variables[0], "a", 0, 0);
}

}  // namespace
}  // namespace morvane

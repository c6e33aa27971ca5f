// How the value that the pack run takes compares with the one that C gives a macro.
#include "cli/lint/rules/value_rules.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "cli/output/printable_text.h"

namespace morvane::test {
namespace {

using namespace cli;

const macro_row& port_macro(std::string_view suffix) {
  return *std::ranges::find(port_macros, suffix, &macro_row::suffix);
}

/// What is wrong with a word that is all of a macro's value, and the code; empty if nothing is.
std::string number_fault_of(std::string_view word, std::string_view suffix) {
  const auto fault = compare_number(port_macro(suffix), "m", word, {}, word);
  return fault ? joined(fault->text, " [", fault->kind->code, "]") : "";
}

TEST(ValueOfANumber, IsTheSameForCInDecimalDigits) {
  for (const char* word : {"0", "7", "40", "000", "4294967295"}) {
    EXPECT_EQ(number_fault_of(word, "_W"), "") << word;
  }
  for (const char* word : {"0", "9", "99", "100", "255"}) {
    EXPECT_EQ(number_fault_of(word, "_sign"), "") << word;
  }
  for (const char* word : {"0", "99", "127", "-128", "-1", "+1"}) {
    EXPECT_EQ(number_fault_of(word, "_expoffset"), "") << word;
  }
  for (const char* word : {"0", "1"}) {
    EXPECT_EQ(number_fault_of(word, "_hflip"), "") << word;
  }
  for (const char* word : {"40u", "40UL", "40ll"}) {
    EXPECT_EQ(number_fault_of(word, "_W"), "") << word;
  }
}

TEST(ValueOfANumber, HasToFit) {
  EXPECT_EQ(number_fault_of("4294967296", "_W"),
            "4294967296 does not fit into 32 bits without a sign: m becomes 0 [out-of-range]");
  EXPECT_EQ(number_fault_of("-1", "_W"),
            "-1 does not fit into 32 bits without a sign: m becomes 4294967295 [out-of-range]");
  EXPECT_EQ(number_fault_of("256", "_datasize"),
            "256 does not fit into 8 bits without a sign: m becomes 0 [out-of-range]");
  EXPECT_EQ(number_fault_of("-129", "_expoffset"),
            "-129 does not fit into 8 bits with a sign: m becomes 127 [out-of-range]");
  EXPECT_EQ(number_fault_of("3", "_vflip"),
            "3 does not fit into 1 bit: m becomes 1 [out-of-range]");
  EXPECT_EQ(number_fault_of("3", "_is_bitvector"),
            "3 does not fit into 1 bit: m becomes 1 [out-of-range]");
}

TEST(ValueOfANumber, HasToBeDecimal) {
  for (const char* word : {"0x10", "0X10", "0b11", "0B11", "-0x10", "+0x10", "(3)", "rows", "0x"}) {
    EXPECT_EQ(number_fault_of(word, "_W"),
              joined(word, " is not decimal: m becomes 0 [not-decimal]"));
  }
  EXPECT_EQ(number_fault_of("0", "_W"), "");
  EXPECT_EQ(number_fault_of("0x0", "_W"), "");
}

TEST(ValueOfANumber, MayBeOctalForC) {
  EXPECT_EQ(number_fault_of("010", "_W"), "010 is octal for C, 8: m becomes 10 [not-decimal]");
  EXPECT_EQ(number_fault_of("+010", "_W"), "+010 is octal for C, 8: m becomes 10 [not-decimal]");
  EXPECT_EQ(number_fault_of("08", "_W"), "08 is no octal number for C: m becomes 8 [not-decimal]");
  EXPECT_EQ(number_fault_of("-010", "_expoffset"),
            "-010 is no octal number for C: m becomes -10 [not-decimal]");
  EXPECT_EQ(number_fault_of("007", "_W"), "");
}

TEST(ValueOfANumber, EndsBeforeOtherText) {
  EXPECT_EQ(number_fault_of("12abc", "_W"),
            "only 12 of 12abc is read: m becomes 12 [trailing-text]");
  EXPECT_EQ(number_fault_of("0a", "_W"), "only 0 of 0a is read: m becomes 0 [trailing-text]");
  EXPECT_EQ(number_fault_of("-2.5", "_expoffset"),
            "only -2 of -2.5 is read: m becomes -2 [trailing-text]");
  EXPECT_EQ(number_fault_of("300u", "_sign"),
            "only 300 of 300u is read: m becomes 44 [trailing-text]");
}

TEST(ValueOfANumber, MayBeTooLargeForC) {
  EXPECT_EQ(number_fault_of("18446744073709551616", "_W"),
            "18446744073709551616 does not fit into 32 bits without a sign: m becomes 4294967295 "
            "[out-of-range]");
  EXPECT_EQ(number_fault_of("07777777777777777777777777", "_W"),
            "07777777777777777777777777 does not fit into 32 bits without a sign: m becomes "
            "4294967295 [out-of-range]");
}

}  // namespace
}  // namespace morvane::test

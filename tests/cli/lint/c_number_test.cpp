// The value that C gives a number or a text, as the linter understands it.
#include "cli/lint/c/c_number.h"

#include <gtest/gtest.h>

namespace morvane::test {
namespace {

using namespace cli;

TEST(CNumber, IsWrittenInOneOfFourBases) {
  for (const char* text :
       {"40", "0x28", "0X28", "0b101000", "0B101000", "050", "0050", "(40)", "+40", "(+ ( 40 ))"}) {
    EXPECT_TRUE(has_value(c_number_of(text), 40)) << text;
  }
  for (const char* text : {"0x", "0b", "0b2", "0xg", "08", "x28", "b1"}) {
    EXPECT_FALSE(c_number_of(text).is_known) << text;
  }
}

TEST(CNumber, MayHaveASuffix) {
  for (const char* text : {"7u", "7U", "7l", "7L", "7ll", "7LL", "7ul", "7uL", "7Ul", "7UL", "7ull",
                           "7ULL", "7lu", "7LU", "7llu", "7LLU", "0x7u", "07UL", "0b111ll"}) {
    EXPECT_TRUE(has_value(c_number_of(text), 7)) << text;
  }
  for (const char* text : {"7uu", "7lul", "7ulu", "7lL", "7Ll", "7lll", "7f", "7x", "7u2", "7 u"}) {
    EXPECT_FALSE(c_number_of(text).is_known) << text;
  }
}

TEST(CNumber, IsNegativeOnlyWithADecimalConstantBehindTheSign) {
  EXPECT_TRUE(has_value(c_number_of("-5"), -5));
  EXPECT_TRUE(has_value(c_number_of("(- 5)"), -5));
  EXPECT_TRUE(has_value(c_number_of("-0"), 0));
  EXPECT_TRUE(has_value(c_number_of("-0u"), 0));
  EXPECT_TRUE(has_value(c_number_of("-0x0"), 0));
  EXPECT_FALSE(has_value(c_number_of("-5"), 5));
  EXPECT_FALSE(has_value(c_number_of("5"), -5));
  for (const char* text : {"-5u", "-0x5", "-05", "-(5)", "--5", "-", "-x"}) {
    EXPECT_FALSE(c_number_of(text).is_known) << text;
  }
}

TEST(CNumber, IsOctalBehindAZero) {
  EXPECT_TRUE(c_number_of("010").is_octal);
  EXPECT_TRUE(c_number_of("-010").is_octal);
  for (const char* text : {"0", "10", "0x10", "0b10", "0u"}) {
    EXPECT_FALSE(c_number_of(text).is_octal) << text;
  }
}

TEST(CNumber, FitsInto64BitsOrHasNoValue) {
  EXPECT_TRUE(has_value(c_number_of("4294967295"), 4294967295));
  EXPECT_TRUE(has_value(c_number_of("9223372036854775807"), INT64_MAX));
  EXPECT_TRUE(has_value(c_number_of("-9223372036854775808"), INT64_MIN));
  EXPECT_EQ(c_number_of("18446744073709551615").magnitude, UINT64_MAX);
  EXPECT_FALSE(has_value(c_number_of("18446744073709551615"), -1));
  EXPECT_FALSE(c_number_of("18446744073709551615").is_too_large);
  EXPECT_TRUE(c_number_of("18446744073709551616").is_too_large);
  EXPECT_FALSE(has_value(c_number_of("18446744073709551616"), 0));
}

TEST(CNumber, IsNoExpression) {
  for (const char* text :
       {"", "+", "()", "(", "40 + 1", "40;", "1.5", "rows", "\"40\"", "(1)+(2)"}) {
    EXPECT_FALSE(c_number_of(text).is_known) << text;
  }
}

TEST(CString, StandsBetweenQuotes) {
  EXPECT_EQ(c_string_of("\"a/b\""), "a/b");
  EXPECT_EQ(c_string_of("\"\""), "");
  for (const char* text :
       {"", "a", "ab", "\"", "\"a", "a\"", "\"a\" \"b\"", "\"a\\n\"", "L\"a\""}) {
    EXPECT_EQ(c_string_of(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace morvane::test

// How texts of packages are shown.
#include "cli/output/printable_text.h"

#include <gtest/gtest.h>

namespace morvane::test {
namespace {

using cli::printable;

TEST(PrintableText, LeavesTextInUtf8AsItIs) {
  EXPECT_EQ(printable("net_split_0 a/b\\x1b"), "net_split_0 a/b\\x1b");
  EXPECT_EQ(printable("\xC2\xA0\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\xF4\x8F\xBF\xBD"),
            "\xC2\xA0\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\xF4\x8F\xBF\xBD");
  EXPECT_EQ(printable("\xD7\x90\xD7\x91"), "\xD7\x90\xD7\x91") << "letters from right to left";
}

TEST(PrintableText, EscapesControlCharacters) {
  using namespace std::literals;
  EXPECT_EQ(printable("\x00\x1B[0m\n\x7F"sv), "\\x00\\x1b[0m\\x0a\\x7f");
  EXPECT_EQ(printable("\xC2\x80\xC2\x9F"), "\\xc2\\x80\\xc2\\x9f");
}

TEST(PrintableText, EscapesWhatTurnsTheDirectionOfTheTextAroundIt) {
  EXPECT_EQ(printable("\xD8\x9C\xE2\x80\x8E\xE2\x80\x8F"), "\\u61c\\u200e\\u200f");
  EXPECT_EQ(printable("\xE2\x80\xA9\xE2\x80\xAA\xE2\x80\xAE\xE2\x80\xAF"),
            "\xE2\x80\xA9\\u202a\\u202e\xE2\x80\xAF");
  EXPECT_EQ(printable("\xE2\x81\xA5\xE2\x81\xA6\xE2\x81\xA9\xE2\x81\xAA"),
            "\xE2\x81\xA5\\u2066\\u2069\xE2\x81\xAA");
}

TEST(PrintableText, EscapesCodesThatMeanNoCharacter) {
  EXPECT_EQ(printable("\xEF\xB7\x8F\xEF\xB7\x90\xEF\xB7\xAF\xEF\xB7\xB0"),
            "\xEF\xB7\x8F\\ufdd0\\ufdef\xEF\xB7\xB0");
  EXPECT_EQ(printable("\xEF\xBF\xBD\xEF\xBF\xBE\xEF\xBF\xBF\xF4\x8F\xBF\xBF"),
            "\xEF\xBF\xBD\\ufffe\\uffff\\u10ffff");
}

TEST(PrintableText, EscapesWhatIsNotUtf8) {
  EXPECT_EQ(printable("a\xFFz"), "a\\xffz");
  EXPECT_EQ(printable("\x80"), "\\x80");
  EXPECT_EQ(printable("\xC3"), "\\xc3");
  EXPECT_EQ(printable("\xC3z"), "\\xc3z");
  EXPECT_EQ(printable("\xE2\x82"), "\\xe2\\x82");
  EXPECT_EQ(printable("\xC1\x81"), "\\xc1\\x81") << "longer than needed";
  EXPECT_EQ(printable("\xE0\x9F\xBF"), "\\xe0\\x9f\\xbf") << "longer than needed";
  EXPECT_EQ(printable("\xED\xA0\x80"), "\\xed\\xa0\\x80") << "a surrogate";
  EXPECT_EQ(printable("\xF4\x90\x80\x80"), "\\xf4\\x90\\x80\\x80") << "past the last character";
  EXPECT_EQ(printable("\xF8\x88\x80\x80\x80"), "\\xf8\\x88\\x80\\x80\\x80");
}

TEST(PrintableText, WritesOffsetsInHexadecimal) {
  EXPECT_EQ(cli::hexadecimal(0), "0x0");
  EXPECT_EQ(cli::hexadecimal(0x1F4), "0x1f4");
  EXPECT_EQ(cli::hexadecimal(0xFFFFFFFFFFFFFFFF), "0xffffffffffffffff");
}

}  // namespace
}  // namespace morvane::test

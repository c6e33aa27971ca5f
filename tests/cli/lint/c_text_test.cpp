// The characters of C, and lines without their comments, as the linter understands them.
#include "cli/lint/c/c_text.h"

#include <gtest/gtest.h>

namespace morvane::test {
namespace {

using namespace cli;
using namespace std::literals;

TEST(CWhiteSpace, IsRemovedAtBothEnds) {
  EXPECT_EQ(cli::trimmed(" \t\v\f\r\0a b\0\r\f\v\t "sv), "a b");
  EXPECT_EQ(cli::trimmed(" \t "), "");
  EXPECT_EQ(cli::trimmed("\na\n"), "\na\n");  // a line ends there
}

TEST(CName, HoldsWhatCompilersTake) {
  EXPECT_EQ(leading_name("net_data_W 40"), "net_data_W");
  EXPECT_EQ(leading_name("azAZ_09(x)"), "azAZ_09");
  EXPECT_EQ(leading_name("$gain$+1"), "$gain$");
  EXPECT_EQ(leading_name("gr\xC3\xB6\xC3\x9F\x65 1"), "gr\xC3\xB6\xC3\x9F\x65");
  EXPECT_EQ(leading_name("\x80\xFF."), "\x80\xFF");
}

TEST(CName, EndsAtAnyOtherCharacter) {
  for (const char other : {'/', ':', '@', '[', '^', '`', '{', '\x7F', '#', '%', '-', '.', ' '}) {
    EXPECT_EQ(leading_name("a"s + other + "b"), "a") << other;
    EXPECT_EQ(leading_name(other + "b"s), "") << other;
  }
}

TEST(CName, DoesNotBeginWithADigit) {
  EXPECT_EQ(leading_name("0a"), "");
  EXPECT_EQ(leading_name("9"), "");
  EXPECT_EQ(leading_name(""), "");
}

/// The text without its comments, and how it ends.
std::string bare(std::string_view text) {
  std::string buffer;
  const bare_text result = without_comments(text, buffer);
  constexpr std::array ends{"", " [comment goes on]", " [comment to the end of the line]"};
  return std::string(result.text).append(ends.at(static_cast<std::size_t>(result.end)));
}

TEST(CComment, BecomesASpace) {
  EXPECT_EQ(bare("1/* one */+/* two */2"), "1 + 2");
  EXPECT_EQ(bare("/* one */ 1 /**/ /* two */"), "1");
  EXPECT_EQ(bare("/*/ 1 */ 2"), "2");
  EXPECT_EQ(bare("/* one */"), "");
}

TEST(CComment, MayGoOnBehindTheText) {
  EXPECT_EQ(bare("1 /* one"), "1 [comment goes on]");
  EXPECT_EQ(bare("1 /* one */ 2 /* two /"), "1 2 [comment goes on]");
  EXPECT_EQ(bare("1 // one"), "1 [comment to the end of the line]");
  EXPECT_EQ(bare("// one /* two */"), " [comment to the end of the line]");
}

TEST(CComment, NeedsASecondSign) {
  EXPECT_EQ(bare("4 / 2"), "4 / 2");
  EXPECT_EQ(bare("4 */ 2"), "4 */ 2");
  EXPECT_EQ(bare("4 /"), "4 /");
}

TEST(CComment, DoesNotBeginInALiteral) {
  EXPECT_EQ(bare(R"("a/*b" /* c */ "//")"), R"("a/*b" "//")");
  EXPECT_EQ(bare(R"("\"/*" 1 // 2)"), R"("\"/*" 1 [comment to the end of the line])");
  EXPECT_EQ(bare("'\"' /* a */ '//'"), "'\"' '//'");
  EXPECT_EQ(bare("\"open // a"), "\"open // a");
  EXPECT_EQ(bare("\"open // \\"), "\"open // \\");
}

}  // namespace
}  // namespace morvane::test

// What a C compiler sees of a header, as the linter understands it.
#include "cli/lint/c/c_lines.h"

#include <gtest/gtest.h>

namespace morvane::test {
namespace {

using namespace cli;

/// The lines of a text, each as "NAME=VALUE", "-" for one without a macro, and what hides it.
std::string seen_macros(std::string_view text) {
  c_reader reader{.header = text};
  std::string all;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    const c_line seen = read_c_line(reader, line);
    constexpr std::array hidden{"", " in a comment", " continued", " left out", " uncertain"};
    if (seen.kind == directive::none) {
      all += "-";
    } else {
      all.append(seen.name).append("=").append(seen.value);
    }
    all.append(hidden.at(static_cast<std::size_t>(seen.state))).append("\n");
    text.remove_prefix(std::min(line.size() + 1, text.size()));
  }
  return all;
}

TEST(CLines, HaveMacrosWithTheirValues) {
  EXPECT_EQ(seen_macros("#define a 1\n  # define\tb\n#undef c\n#define d \"x // y\" // z\n"),
            "a=1\nb=\nc=\nd=\"x // y\"\n");
}

TEST(CLines, HaveNoComments) {
  EXPECT_EQ(seen_macros("#define a /* one */ 1 /* two */\n/* #define b 2 */\n// #define c 3\n"),
            "a=1\n- in a comment\n- in a comment\n");
  EXPECT_EQ(seen_macros("/* one\n#define a 1\n*/ #define b 2\n#define c 3 /* on\n#define d */\n"),
            "- in a comment\n- in a comment\nb=2\nc=3\n- in a comment\n");
}

TEST(CLines, GoOnAfterABackslash) {
  EXPECT_EQ(seen_macros("#define a \\\n#define b 2\n#define c 3\n// x \\\n#define d 4\n"),
            "a=\n- continued\nc=3\n- in a comment\n- in a comment\n");
}

/// The line of a text that is one line.
c_line only_line(std::string_view text) {
  c_reader reader{.header = text};
  return read_c_line(reader, text);
}

TEST(CLines, DefineOnlyWithTheWholeWord) {
  for (const char* text : {"#defines a 1", "#define1", "#define$", "#undefined a", "#def a 1", "#",
                           "define a 1", "# 1", "/ #define a 1"}) {
    EXPECT_EQ(only_line(text).kind, directive::none) << text;
  }
  for (const char* text : {"#define", "#define/* one */a 1", "#/**/ define a", "/* one */#define a",
                           "\f#\vdefine(a)"}) {
    EXPECT_EQ(only_line(text).kind, directive::define) << text;
  }
  EXPECT_EQ(only_line("#undef").kind, directive::undef);
}

TEST(CLines, TellAWordThatIsNoName) {
  EXPECT_EQ(only_line("#define net_in.0_W 40").name, "net_in");
  EXPECT_EQ(only_line("#define net_in.0_W 40").word, "net_in.0_W");
  EXPECT_EQ(only_line("#define a:0/* one */ 40").word, "a:0");
  EXPECT_EQ(only_line("#define a/0// one").word, "a/0");
  EXPECT_EQ(only_line("#define 0a").word, "0a");
  EXPECT_EQ(only_line("#define 0a").name, "");
}

TEST(CLines, TellWhetherAMacroHasParameters) {
  EXPECT_TRUE(only_line("#define f(x) x").has_parameters);
  EXPECT_FALSE(only_line("#define f (x)").has_parameters);
  EXPECT_FALSE(only_line("#define f").has_parameters);
}

TEST(CLines, GoOnAfterABackslashWithWhiteSpaceBehindIt) {
  EXPECT_TRUE(only_line("#define a 1 \\").continued);
  EXPECT_TRUE(only_line("#define a 1 \\ \t\r").continued);
  EXPECT_FALSE(only_line("#define a 1 \\n").continued);
  EXPECT_EQ(seen_macros("/* one */ a \\\n#define b 2\n"), "-\n- continued\n");
}

TEST(CLines, MayHoldACommentThatGoesOn) {
  EXPECT_EQ(seen_macros("a /* one\n*/ \\\n#define b 2\n"), "-\n- in a comment\n- continued\n");
  EXPECT_EQ(seen_macros("#define a /* one\n#define b 2 */ \\\n 3\n#define c 3\n"),
            "a=\n- in a comment\n- continued\nc=3\n");
  EXPECT_EQ(seen_macros("#define a 1 // one \\\n#define b 2\n#define c 3\n"),
            "a=1\n- in a comment\nc=3\n");
}

}  // namespace
}  // namespace morvane::test

// What a C compiler sees of a header, as the linter understands it.
#include "companion/lint/c_lines.h"

#include <gtest/gtest.h>

#include "companion/lint/c_conditions.h"
#include "companion/lint/c_number.h"
#include "companion/lint/memory_plan.h"

namespace morvane::test {
namespace {

using namespace companion;

/// The lines of a text, each as "NAME=VALUE", "-" for one without a macro, and what hides it.
std::string seen_macros(std::string_view text) {
  macro_index macros(text);
  c_reader reader{.header = text, .macros = macros, .asked = macros_of_conditions(text)};
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
    all.append(hidden.at(static_cast<std::size_t>(seen.seen))).append("\n");
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
  EXPECT_EQ(seen_macros("/* one\n#define a 1\n*/ #define b 2\n#define c 3 /* on\n#define d */ 4\n"),
            "- in a comment\n- in a comment\nb=2\nc=3\n- continued\n");
}

TEST(CLines, GoOnAfterABackslash) {
  EXPECT_EQ(seen_macros("#define a \\\n#define b 2\n#define c 3\n// x \\\n#define d 4\n"),
            "a=\n- continued\nc=3\n- in a comment\n- in a comment\n");
}

TEST(CLines, AreLeftOutByConditions) {
  EXPECT_EQ(seen_macros("#if 0\n#define a 1\n#else\n#define b 2\n#endif\n#define c 3\n"),
            "-\na=1 left out\n- left out\nb=2\n-\nc=3\n");
  EXPECT_EQ(seen_macros("#ifndef G\n#define G\n#ifdef G\n#define a 1\n#endif\n#endif\n"),
            "-\nG=\n-\na=1\n-\n-\n");
  EXPECT_EQ(seen_macros("#if VERSION > 2\n#define a 1\n#elif 1\n#define b 2\n#endif\n"),
            "-\na=1 uncertain\n- uncertain\nb=2 uncertain\n- uncertain\n");
  EXPECT_EQ(seen_macros("#if !defined(X)\n#define a 1\n#endif\n"), "-\na=1\n-\n");
}

TEST(CNumber, IsAnIntegerConstant) {
  for (const char* text :
       {"40", "40u", "40UL", "0x28", "050", "0b101000", "(40)", "+40", "(+40)"}) {
    EXPECT_TRUE(has_value(c_number_of(text), 40)) << text;
  }
  EXPECT_TRUE(has_value(c_number_of("-5"), -5));
  EXPECT_TRUE(has_value(c_number_of("4294967295"), 4294967295));
  for (const char* text : {"", "40 + 1", "40;", "4x", "08", "1.5", "rows", "\"40\"", "(1)+(2)",
                           "-5u", "99999999999999999999"}) {
    EXPECT_FALSE(has_value(c_number_of(text), 40)) << text;
    EXPECT_FALSE(has_value(c_number_of(text), -5)) << text;
  }
}

TEST(CString, StandsBetweenQuotes) {
  EXPECT_EQ(c_string_of("\"a/b\""), "a/b");
  EXPECT_EQ(c_string_of("\"\""), "");
  for (const char* text : {"a", "\"", "\"a\" \"b\"", "\"a\\n\"", "L\"a\""}) {
    EXPECT_EQ(c_string_of(text), std::nullopt) << text;
  }
}

TEST(MemoryPlan, NamesAnImageThatSharesAddresses) {
  memory_plan plan;
  EXPECT_EQ(plan.add(image_range(0, 100, 10)), std::nullopt);
  EXPECT_EQ(plan.add(image_range(1, 110, 10)), std::nullopt);
  EXPECT_EQ(plan.add(image_range(2, 90, 10)), std::nullopt);
  EXPECT_EQ(plan.add(image_range(3, 119, 2)), 1U);
  EXPECT_EQ(plan.add(image_range(4, 120, 1)), 3U);
  EXPECT_EQ(plan.add(image_range(5, 80, 50)), 2U);
  EXPECT_EQ(plan.add(image_range(6, 100, 0)), std::nullopt);
}

}  // namespace
}  // namespace morvane::test

// The lines that #if and what belongs to it leave to a C compiler, as the linter understands them.
#include <gtest/gtest.h>

#include "cli/lint/c/c_lines.h"

namespace morvane::test {
namespace {

using namespace cli;

/// The macros that a header defines with a value, each with what hides its line: "a b-left-out".
std::string defined_macros(std::string_view header) {
  c_reader reader{.header = header};
  std::string all;
  for (std::string_view text = header; !text.empty();) {
    const std::string_view line = text.substr(0, text.find('\n'));
    const c_line seen = read_c_line(reader, line);
    constexpr std::array hidden{"", "-in-comment", "-continued", "-left-out", "-uncertain"};
    if (seen.kind == directive::define && !seen.value.empty()) {
      all.append(all.empty() ? "" : " ").append(seen.name);
      all.append(hidden.at(static_cast<std::size_t>(seen.state)));
    }
    text.remove_prefix(std::min(line.size() + 1, text.size()));
  }
  return all;
}

/// What a condition does with the lines below it.
std::string macros_below(const std::string& condition) {
  return defined_macros(condition + "\n#define a 1\n#endif\n#define b 2\n");
}

TEST(CConditions, HoldIfTheyAre1) {
  EXPECT_EQ(macros_below("#if 1"), "a b");
  EXPECT_EQ(macros_below(" # if\t1 // one"), "a b");
  EXPECT_EQ(macros_below("#if 0"), "a-left-out b");
  EXPECT_EQ(macros_below("#/* no */if 0 /* no"
                         "\n*/"),
            "a-left-out b");
}

TEST(CConditions, KnowThatCIsNotCPlusPlus) {
  for (const char* condition : {"#ifndef __cplusplus", "#if !defined(__cplusplus)",
                                "#if !defined __cplusplus", "#ifndef __cplusplus // C"}) {
    EXPECT_EQ(macros_below(condition), "a b") << condition;
  }
  for (const char* condition : {"#ifdef __cplusplus", "#if defined(__cplusplus)",
                                "#if defined __cplusplus", "#\f\vifdef __cplusplus /* C++ */"}) {
    EXPECT_EQ(macros_below(condition), "a-left-out b") << condition;
  }
}

TEST(CConditions, AreUncertainIfTheyAreAnythingElse) {
  for (const char* condition :
       {"#if", "#if 2", "#if !0", "#if 01", "#if 1 + 1", "#if X", "#if defined(X)", "#ifdef X",
        "#ifndef X", "#ifdef", "#ifndef", "#ifdef __cplusplus_", "#ifdef __GNUC__",
        "#if defined(__cplusplus) && X", "#if defined(__cplusplus) || 1"}) {
    EXPECT_EQ(macros_below(condition), "a-uncertain b") << condition;
    EXPECT_EQ(macros_below(std::string("#define X\n") + condition), "a-uncertain b") << condition;
  }
}

TEST(CConditions, AreUncertainIfTheyGoOnInTheNextLine) {
  for (const char* condition : {"#if 1 \\\n - 1", "#if 0 \\ \n + 1", "#ifdef __cplusplus \\\n",
                                "#ifndef X \\\n#define X"}) {
    EXPECT_EQ(macros_below(condition), "a-uncertain b") << condition;
  }
  EXPECT_EQ(macros_below("#if 0\n#elif 1 \\\n && 0"), "a-uncertain b");
}

TEST(CConditions, HoldInAnIncludeGuard) {
  for (const char* guard :
       {"#ifndef X\n#define X", "#ifndef __X // one\n\n \r\n# define __X // two",
        "/* x */\n#pragma once\n#ifndef X\r\n#define X\r", "#if 1\n#endif\n#ifndef X\n#define X",
        "#ifdef __cplusplus\nextern \"C\" {\n#endif\n#ifndef X\n#define X",
        "#if !defined(X)\n#define X", "#if !defined X // one\n#define X"}) {
    EXPECT_EQ(macros_below(guard), "a b") << guard;
  }
  EXPECT_EQ(defined_macros("#ifndef X\n#define X\n#else\n#define a 1\n#endif\n"), "a-left-out");
}

TEST(CConditions, AreUncertainIfTheyAreNoIncludeGuard) {
  for (const char* lines :
       {"#ifndef X\n#define Y", "#ifndef X\n#define XY", "#ifndef X\n#undef X",
        "#ifndef X\n// x\n#define X", "#ifndef X\n#defineX", "#define X\n#ifndef X\n#define X",
        "#undef X\n#ifndef X\n#define X", "#if Y\n#endif\n#ifndef X\n#define X",
        "#ifdef X\n#define X", "#if !defined(X) && 1\n#define X", "#if !defined(Y)\n#define X",
        "#if defined(X)\n#define X"}) {
    EXPECT_EQ(macros_below(lines), "a-uncertain b") << lines;
  }
}

TEST(CConditions, TakeOneBranch) {
  const std::string branches = "\n#define a 1\n#elif 1\n#define b 2\n#else\n#define c 3\n#endif\n";
  EXPECT_EQ(defined_macros("#if 1" + branches), "a b-left-out c-left-out");
  EXPECT_EQ(defined_macros("#if 0" + branches), "a-left-out b c-left-out");
  EXPECT_EQ(defined_macros("#if X" + branches), "a-uncertain b-uncertain c-uncertain");
  EXPECT_EQ(defined_macros("#if 0\n#elif 0\n#define a 1\n#else\n#define b 2\n#endif\n"),
            "a-left-out b");
  EXPECT_EQ(defined_macros("#if 0\n#elif X\n#define a 1\n#else\n#define b 2\n#endif\n"),
            "a-uncertain b-uncertain");
}

TEST(CConditions, LieInOneAnother) {
  const std::string lines = "\n#define a 1\n#endif\n#define b 2\n#endif\n#define c 3\n";
  EXPECT_EQ(defined_macros("#if 1\n#if 1" + lines), "a b c");
  EXPECT_EQ(defined_macros("#if 1\n#if 0" + lines), "a-left-out b c");
  EXPECT_EQ(defined_macros("#if 1\n#if X" + lines), "a-uncertain b c");
  EXPECT_EQ(defined_macros("#if 0\n#if 1" + lines), "a-left-out b-left-out c");
  EXPECT_EQ(defined_macros("#if 0\n#if X" + lines), "a-left-out b-left-out c");
  EXPECT_EQ(defined_macros("#if X\n#if 1" + lines), "a-uncertain b-uncertain c");
  EXPECT_EQ(defined_macros("#if X\n#if 0" + lines), "a-left-out b-uncertain c");
}

TEST(CConditions, IgnoreWhatHasNoIf) {
  EXPECT_EQ(defined_macros("#else\n#define a 1\n#elif 0\n#define b 2\n#endif\n#define c 3\n"),
            "a b c");
  EXPECT_EQ(macros_below("#if 1\n#pragma once\n#include \"x.h\"\n#\n#error x"), "a b");
}

TEST(CConditions, MayEndWithTheHeader) {
  EXPECT_EQ(defined_macros("#define a 1\n#ifdef a"), "a");
  EXPECT_EQ(defined_macros("#ifndef a"), "");
  EXPECT_EQ(defined_macros("#ifndef a\n#"), "");
  EXPECT_EQ(defined_macros("#ifndef a\n#define"), "");
  EXPECT_EQ(defined_macros("#define a 1\n# "), "a");
  EXPECT_EQ(defined_macros("#define a 1\n#"), "a");
}

}  // namespace
}  // namespace morvane::test

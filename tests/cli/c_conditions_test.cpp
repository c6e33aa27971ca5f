// The lines that #if and what belongs to it leave to a C compiler, as the linter understands them.
#include "cli/lint/c/c_conditions.h"

#include <gtest/gtest.h>

namespace morvane::test {
namespace {

using namespace cli;

/// The macros that a header defines with a value, each with what hides its line: "a b-left-out".
std::string defined_macros(std::string_view header) {
  macro_index macros(header);
  c_reader reader{.header = header, .macros = macros, .asked = macros_of_conditions(header)};
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

TEST(CConditions, HoldUnlessTheirNumberIs0) {
  for (const char* number : {"1", "2u", "0x10", "(1)", "-1", "+1", "!0", "!!1", "! ! 3"}) {
    EXPECT_EQ(macros_below(std::string("#if ") + number), "a b") << number;
  }
  for (const char* number : {"0", "0x0", "(0)", "-0", "!1", "!!0"}) {
    EXPECT_EQ(macros_below(std::string("#if ") + number), "a-left-out b") << number;
  }
}

TEST(CConditions, AskWhetherAMacroIsDefined) {
  for (const char* condition :
       {"#ifdef X", "#if defined X", "#if defined(X)", "# if defined ( X )", "#\tifdef X // Y",
        "#ifdef /* Y */ X", "#/* Y */ifdef X", "#\f\vifdef X", "#ifndef Y", "#if !defined(Y)",
        "#if !!defined X"}) {
    EXPECT_EQ(macros_below(std::string("#define X\n") + condition), "a b") << condition;
  }
  for (const char* condition : {"#ifdef Y", "#if defined Y", "#ifndef X", "#if !defined(X)"}) {
    EXPECT_EQ(macros_below(std::string("#define X\n") + condition), "a-left-out b") << condition;
  }
}

TEST(CConditions, AreUncertainWhenTheyAreExpressions) {
  for (const char* condition :
       {"#if", "#if X", "#if X > 2", "#if 1 + 1", "#if defined", "#if defined()", "#if defined(X",
        "#if defined X)", "#if defined X && defined Y", "#if definedX", "#if !X",
        "#if defined(X) || 1"}) {
    EXPECT_EQ(macros_below(condition), "a-uncertain b") << condition;
  }
}

TEST(CConditions, AreUncertainWhenTheirNumberIsTooLargeForC) {
  EXPECT_EQ(macros_below("#if 18446744073709551615"), "a b");
  EXPECT_EQ(macros_below("#if 18446744073709551616"), "a-uncertain b");
  EXPECT_EQ(macros_below("#if !18446744073709551616"), "a-uncertain b");
}

TEST(CConditions, AreUncertainWhenTheyGoOnInTheNextLine) {
  const std::string define = "#define X\n";
  for (const char* condition :
       {"#if defined(X) \\\n && defined(Y)", "#if defined(Y) \\ \n || 1", "#ifdef \\\nX",
        "#ifndef /*\n*/ X", "#if 1 /* one\n*/ - 1", "#ifdef"}) {
    EXPECT_EQ(macros_below(define + condition), "a-uncertain b") << condition;
  }
  EXPECT_EQ(macros_below(define + "#ifdef X \\\n"), "a b");
  EXPECT_EQ(macros_below(define + "#if defined X // \\\n 0"), "a b");
  EXPECT_EQ(macros_below(define + "#if 0\n#elif defined(X) \\\n && 0"), "a-uncertain b");
}

TEST(CConditions, AreUncertainForMacrosThatACompilerMayDefine) {
  for (const char* name : {"__GNUC__", "__x", "_WIN32", "_A", "_Z", "linux", "unix"}) {
    EXPECT_EQ(macros_below(std::string("#ifdef ") + name), "a-uncertain b") << name;
    EXPECT_EQ(macros_below(std::string("#ifndef ") + name), "a-uncertain b") << name;
  }
  for (const char* name : {"_", "_a", "_0", "$", "X__", "linux_", "__cplusplus"}) {
    EXPECT_EQ(macros_below(std::string("#ifdef ") + name), "a-left-out b") << name;
  }
}

TEST(CConditions, AreCertainForMacrosThatTheHeaderDefines) {
  EXPECT_EQ(defined_macros("#ifndef __NET_H\n#define __NET_H\n#define a 1\n#endif\n"), "a");
  EXPECT_EQ(defined_macros("#define __X\n#undef __X\n#ifdef __X\n#define a 1\n#endif\n"),
            "a-left-out");
}

TEST(CConditions, KnowWhichMacrosAreDefinedAboveThem) {
  EXPECT_EQ(macros_below("#ifdef X\n#endif\n#define X\n#ifdef X"), "a b");
  EXPECT_EQ(macros_below("#define X\n#undef X\n#ifdef X"), "a-left-out b");
  EXPECT_EQ(macros_below("#undef X\n#define Y\n#ifdef X"), "a-left-out b");
  EXPECT_EQ(macros_below("#if 0\n#define X\n#endif\n#ifdef X"), "a-left-out b");
  EXPECT_EQ(macros_below("#ifdef __LP64__\n#define X\n#endif\n#ifdef X"), "a-uncertain b");
  EXPECT_EQ(macros_below("#define X\n#ifdef __LP64__\n#define X\n#endif\n#ifdef X"), "a b");
  EXPECT_EQ(macros_below("#define X\n#ifdef __LP64__\n#undef X\n#endif\n#ifdef X"),
            "a-uncertain b");
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
  EXPECT_EQ(defined_macros("#define a 1\n# "), "a");
  EXPECT_EQ(defined_macros("#define a 1\n#"), "a");
}

}  // namespace
}  // namespace morvane::test

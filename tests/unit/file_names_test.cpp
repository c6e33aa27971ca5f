#include "discovery/file_names.h"

#include <gtest/gtest.h>

#include "printed_text.h"

namespace morvane {
namespace {

using test::length_message;
using test::printed_by;

TEST(GetFileType, IsTheTextAfterTheLastDot) {
  EXPECT_EQ(get_file_type("a.dvi", false), "dvi");
  EXPECT_EQ(get_file_type("a.b.dvi", false), "dvi");
  EXPECT_EQ(get_file_type(".dvi", false), "dvi");
  EXPECT_EQ(get_file_type("a.", false), "");
  EXPECT_EQ(get_file_type("dvi", false), "");
  EXPECT_EQ(get_file_type("..", false), "");
}

TEST(GetFileType, IsInLowerCaseUnlessTheCaseIsKept) {
  EXPECT_EQ(get_file_type("A.DvI", false), "dvi");
  EXPECT_EQ(get_file_type("A.DvI", true), "DvI");
  EXPECT_EQ(get_file_type("A.[@\xC3\x89Z", false), "[@\xC3\x89z");
}

TEST(GetFileType, ReportsANameOf128Characters) {
  const std::string longest = std::string(123, 'n').append(".dvi");
  const std::string too_long = std::string(124, 'n').append(".dvi");
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(get_file_type(longest, false), "dvi");
              EXPECT_EQ(get_file_type(too_long, false), "");
            }),
            length_message("FILENAME", too_long));
}

TEST(GetFileStem, IsTheTextBeforeTheLastDot) {
  EXPECT_EQ(get_file_stem("a.dvi"), "a");
  EXPECT_EQ(get_file_stem("a.b.dvi"), "a.b");
  EXPECT_EQ(get_file_stem("A.DVI"), "A");
  EXPECT_EQ(get_file_stem(".dvi"), "");
  EXPECT_EQ(get_file_stem("dvi"), "");
}

TEST(GetFileStem, ReportsANameOf128Characters) {
  const std::string longest = std::string(123, 'n').append(".dvi");
  const std::string too_long = std::string(124, 'n').append(".dvi");
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(get_file_stem(longest), std::string(123, 'n'));
              EXPECT_EQ(get_file_stem(too_long), "");
            }),
            length_message("FILENAME", too_long));
}

/// The index of a name that has one.
std::int32_t index_of(std::string_view name) {
  std::int32_t index = 77;
  EXPECT_EQ(parse_file_index(name, index), 0) << name;
  return index;
}

TEST(ParseFileIndex, IsTheNumberBeforeTheExtension) {
  EXPECT_EQ(index_of("dag0_split_0.dvi"), 0);
  EXPECT_EQ(index_of("dag0_split_12.dvi"), 12);
  EXPECT_EQ(index_of("_split_7.DVI"), 7);
  EXPECT_EQ(index_of("dag0_split_010.dvi"), 10);
}

TEST(ParseFileIndex, IsZeroWithoutTheMark) {
  EXPECT_EQ(index_of("dag0.dvi"), 0);
  EXPECT_EQ(index_of("dag12.dvi"), 0);
  EXPECT_EQ(index_of("dag_SPLIT_3.dvi"), 0);
}

TEST(ParseFileIndex, TakesOnlyTheDigitsBeforeTheExtension) {
  EXPECT_EQ(index_of("dag0_split_x3.dvi"), 3);
  EXPECT_EQ(index_of("dag0_split_1_2.dvi"), 2);
  EXPECT_EQ(index_of("dag0_split_-4.dvi"), 4);
  EXPECT_EQ(index_of("a_split_1_split_2.dvi"), 2);
}

TEST(ParseFileIndex, StopsAtTheNumbersOf64BitsAndKeepsTheLow32) {
  EXPECT_EQ(index_of("a_split_2147483647.dvi"), 2147483647);
  EXPECT_EQ(index_of("a_split_2147483648.dvi"), -2147483647 - 1);
  EXPECT_EQ(index_of("a_split_4294967297.dvi"), 1);
  EXPECT_EQ(index_of("a_split_99999999999999999999.dvi"), -1);
}

TEST(ParseFileIndex, LooksBeforeTheFirstPlaceOfTheExtension) {
  EXPECT_EQ(index_of("a_split_2.dvi.dvi"), 2);
  EXPECT_EQ(index_of("a_split_2.dvi_x3.dvi"), 2);
  EXPECT_EQ(index_of("a1.dvi_split_2.dvi"), 0);
}

TEST(ParseFileIndex, NeverReachesBackOverTheMark) {
  EXPECT_EQ(index_of("a_split_5.dvi"), 5);
  EXPECT_EQ(index_of("12_split_5.dvi"), 5);
}

TEST(ParseFileIndex, ReportsAMarkWithoutADigitBeforeTheExtension) {
  for (const char* name :
       {"dag0_split_.dvi", "dag0_split_3x.dvi", "a.dvi_split_2.dvi", ".dvi_split_2.dvi"}) {
    std::int32_t index = 77;
    EXPECT_EQ(printed_by([&] { EXPECT_EQ(parse_file_index(name, index), -1); }),
              std::string("error: filename format is incorrect, can't find file index for file ") +
                  name + "\n");
    EXPECT_EQ(index, 77);
  }
}

TEST(ParseFileIndex, ReportsANameWithoutExtension) {
  std::int32_t index = 77;
  EXPECT_EQ(printed_by([&] { EXPECT_EQ(parse_file_index("a_split_2", index), -1); }),
            "error: can't match file type . for file a_split_2\n");
}

TEST(ParseFileIndex, ReportsANameThatIsTooLong) {
  const std::string name(128, 'n');
  std::int32_t index = 77;
  EXPECT_EQ(
      printed_by([&] { EXPECT_EQ(parse_file_index(name, index), -1); }),
      length_message("FILENAME", name) + "error: can't match file type . for file " + name + "\n");
}

}  // namespace
}  // namespace morvane

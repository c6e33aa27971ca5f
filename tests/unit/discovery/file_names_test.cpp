// What a pack run cannot show: it asks with an index of 0, and only for names of DVIs.
#include "discovery/file_names.h"

#include <gtest/gtest.h>

#include "unit/printed_text.h"

namespace morvane {
namespace {

TEST(GetFileStem, OfANameThatIsTooLongIsReportedAndEmpty) {
  const std::string name = std::string(124, 'n') + ".dvi";
  EXPECT_EQ(test::printed_by([&] { EXPECT_EQ(get_file_stem(name), ""); }),
            test::length_message("FILENAME", name));
}

TEST(ParseFileIndex, IsZeroWithoutTheMark) {
  std::int32_t index = 77;
  EXPECT_EQ(parse_file_index("dag12.dvi", index), 0);
  EXPECT_EQ(index, 0);
}

TEST(ParseFileIndex, ReportsANameWithoutExtension) {
  std::int32_t index = 77;
  EXPECT_EQ(test::printed_by([&] { EXPECT_EQ(parse_file_index("a_split_2", index), -1); }),
            "error: can't match file type . for file a_split_2\n");
  EXPECT_EQ(index, 77);
}

TEST(ParseFileIndex, ReportsANameThatIsTooLong) {
  const std::string name(128, 'n');
  std::int32_t index = 77;
  EXPECT_EQ(test::printed_by([&] { EXPECT_EQ(parse_file_index(name, index), -1); }),
            test::length_message("FILENAME", name) + "error: can't match file type . for file " +
                name + "\n");
}

}  // namespace
}  // namespace morvane

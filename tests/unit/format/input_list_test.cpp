#include "format/input_list.h"

#include <gtest/gtest.h>

#include <utility>

namespace morvane {
namespace {

TEST(InputList, KeepsManyNamesInTheOrderInWhichTheyAreAdded) {
  input_list files;
  for (int i = 0; i < 5000; ++i) {
    files.add({.name = "net_split_" + std::to_string(i) + ".dvi", .index = i});
  }
  ASSERT_EQ(files.size(), 5000U);
  EXPECT_EQ(files[0].name, "net_split_0.dvi");
  EXPECT_EQ(files[4999].name, "net_split_4999.dvi");
  int expected = 0;
  for (const input_entry file : files) {
    EXPECT_EQ(file.index, expected++);
  }
  EXPECT_EQ(expected, 5000);
}

TEST(InputList, KeepsNamesOfAnyLength) {
  const std::string longest(100'000, 'n');
  const input_list files{{.name = ""}, {.name = longest}, {.name = "b", .index = -1}};
  EXPECT_EQ(files[0].name, "");
  EXPECT_EQ(files[1].name, longest);
  EXPECT_EQ(files[2].name, "b");
  EXPECT_EQ(files[2].index, -1);
}

TEST(InputList, KeepsItsNamesWhenItIsMoved) {
  input_list files{{.name = "a.dvi"}, {.name = "b.dvi"}};
  const std::string_view name = files[1].name;
  input_list moved = std::move(files);
  moved.add({.name = "c.dvi"});
  EXPECT_EQ(moved[1].name.data(), name.data());
  EXPECT_EQ(moved[0].name, "a.dvi");
  EXPECT_EQ(moved[2].name, "c.dvi");

  files = {};
  files.add({.name = "d.dvi"});
  EXPECT_EQ(files[0].name, "d.dvi");
  EXPECT_EQ(moved[2].name, "c.dvi");
}

}  // namespace
}  // namespace morvane

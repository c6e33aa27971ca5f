// The order of the DVIs in the list, compared with the order of the folder.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "discovery/input_files.h"
#include "harness/scratch_folder.h"
#include "printed_text.h"

namespace morvane {
namespace {

using test::printed_by;
using test::scratch_folder;

using file_names = std::vector<std::string>;

file_names yielded_by(const scratch_folder& folder) {
  file_names found;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
    found.push_back(entry.path().filename().string());
  }
  return found;
}

file_names listed_in(const scratch_folder& folder) {
  input_list dvis;
  list_input_files(folder.path(), "dvi", dvis);
  file_names found;
  for (const input_entry dvi : dvis) {
    found.emplace_back(dvi.name);
  }
  return found;
}

TEST(ListInputFiles, LeavesADisorderedListAsTheFolderYieldsIt) {
  const scratch_folder folder;
  for (const int index : {4, 0, 7, 2, 9, 5}) {
    folder.write("net_split_" + std::to_string(index) + ".dvi", "");
  }
  const file_names yielded = yielded_by(folder);
  printed_by([&] { EXPECT_EQ(listed_in(folder), yielded); });
  EXPECT_FALSE(std::ranges::is_sorted(yielded)) << "this folder cannot tell";
}

TEST(ListInputFiles, OrdersManyEqualIndicesAsTheStandardSortDoes) {
  const scratch_folder folder;
  for (int i = 0; i < 100; ++i) {
    folder.write("net" + std::to_string(i) + ".dvi", "");
  }
  const file_names yielded = yielded_by(folder);
  std::vector<std::pair<int, std::string>> expected;
  for (const std::string& name : yielded) {
    expected.emplace_back(0, name);
  }
  std::sort(expected.begin(), expected.end(),
            [](const auto& a, const auto& b) { return a.first < b.first; });
  file_names sorted;
  for (const auto& [index, name] : expected) {
    sorted.push_back(name);
  }
  EXPECT_EQ(listed_in(folder), sorted);
  EXPECT_NE(sorted, yielded) << "a stable sort would pass";
}

}  // namespace
}  // namespace morvane

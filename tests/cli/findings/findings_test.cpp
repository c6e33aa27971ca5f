// What morvane lint finds in a folder, and morvane check in a package: every case of
// tests/findings/.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "harness/packages.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;

std::string cases_folder() {
  return source_folder() + "/tests/findings";
}

/// The paths of the folders with a file "expected".
std::vector<std::string> all_cases() {
  std::vector<std::string> cases;
  for (const auto& entry : fs::recursive_directory_iterator(cases_folder())) {
    if (entry.path().filename() == "expected") {
      cases.push_back(entry.path().parent_path().lexically_relative(cases_folder()).string());
    }
  }
  std::ranges::sort(cases);
  return cases;
}

std::string case_name(const testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  std::ranges::replace_if(
      name, [](char c) { return c == '-' || c == '/'; }, '_');
  return name;
}

class Findings : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    copy_files(cases_folder() + "/" + GetParam(), folder, ".");
    if (!folder.exists("in")) {
      folder.write("plain.bin", sound_package());
      folder.write("vproc.bin", sound_package_with_vproc());
    }
    if (folder.exists("setup.sh")) {
      const std::string functions = cases_folder() + "/functions.sh";
      const run_result setup =
          run_program({"bash", "-euc", ". \"$0\"; . ./setup.sh", functions}, folder.path());
      ASSERT_EQ(setup.status, 0) << setup.diagnostics;
    }
  }

  [[nodiscard]] run_result run(const std::vector<std::string>& more = {}) const {
    const bool is_folder = folder.exists("in");
    std::vector<std::string> words{is_folder ? "lint" : "check", is_folder ? "in" : "net.bin"};
    if (folder.exists("options")) {
      std::istringstream options(folder.read("options"));
      for (std::string word; options >> word;) {
        words.push_back(word);
      }
    }
    words.insert(words.end(), more.begin(), more.end());
    return run_morvane(words, folder.path());
  }

  scratch_folder folder;
};

TEST_P(Findings, AreTheExpectedOnes) {
  const run_result found = run();
  EXPECT_EQ(found.output + "status " + std::to_string(found.status) + "\n",
            folder.read("expected"));
  const run_result quiet = run({"--quiet"});
  EXPECT_EQ(quiet.status, found.status);
  EXPECT_EQ(quiet.diagnostics, "");
  EXPECT_EQ(quiet.output.find("warning: "), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Of, Findings, testing::ValuesIn(all_cases()), case_name);

}  // namespace
}  // namespace morvane::test

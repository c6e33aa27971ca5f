// Outputs in a folder in which the system makes no files.
#include <gtest/gtest.h>

#include "cli/outcome.h"
#include "harness/packages.h"

namespace morvane::test {
namespace {

class NoFileCanBeMade : public morvane_test {
 protected:
  void SetUp() override {
    folder.write("net.bin", sound_package());
    folder.write("in/net.dvi", "image");
    folder.write("in/net.h", "#define net_DAG_NAME \"net\"\n#define net_image_size 5\n");
  }

  void expect_refusal(const std::vector<std::string>& words, const std::string& path) {
    const run_result run = morvane(words);
    EXPECT_EQ(run.status, 2);
    const std::string text = "morvane: " + path + ": no file can be created in its folder: ";
    EXPECT_NE(run.diagnostics.find(text), std::string::npos) << run.diagnostics;
  }
};

TEST_F(NoFileCanBeMade, ForAPackage) {
  expect_refusal({"pack", "in", "-o", "/proc/net.bin", "--no-sync"}, "/proc/net.bin");
}

TEST_F(NoFileCanBeMade, ForADependencyFile) {
  expect_refusal({"pack", "in", "-o", "new.bin", "--depfile", "/proc/net.d"}, "/proc/net.d");
  EXPECT_FALSE(folder.exists("new.bin"));
}

TEST_F(NoFileCanBeMade, ForAPage) {
  expect_refusal({"report", "net.bin", "-o", "/proc/net.html"}, "/proc/net.html");
}

TEST_F(NoFileCanBeMade, ForAReport) {
  expect_refusal({"lint", "in", "--format", "sarif:/proc/net.sarif"}, "/proc/net.sarif");
}

}  // namespace
}  // namespace morvane::test

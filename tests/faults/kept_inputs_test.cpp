// morvane when a file or folder cannot be looked at: what is not known to be another file is not
// replaced.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "faults/faulty_run.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;

class KeptInputs : public testing::Test {
 protected:
  void SetUp() override {
    if (const std::string reason = no_faults_because(morvane_path()); !reason.empty()) {
      GTEST_SKIP() << reason;
    }
    folder.write("in/net.dvi", "image");
    folder.write("in/net.h", "#define net_DAG_NAME net\n#define net_image_size 5\n");
    ASSERT_EQ(run_tool({"-d", "in", "-f", "net.dvi"}, folder.path()).status, 0);
    fs::create_symlink("in/net.h", folder.path("link"));
    before = folder.files();
  }

  /// Runs a command that is refused once for every call that looks at a file, which fails. Checks
  /// that it is refused all the same.
  void expect_refusals(const std::vector<std::string>& arguments) const {
    const std::vector<std::string> command = morvane_words(arguments);
    const unsigned calls = calls_of(command, folder.path())["stat"];
    EXPECT_GE(calls, 2U);
    for (unsigned number = 1; number <= calls; ++number) {
      SCOPED_TRACE(arguments[0] + ", stat " + std::to_string(number));
      const run_result run = run_with(
          {.kind = "stat", .number = number, .effect = error_effect(EIO)}, command, folder.path());
      EXPECT_EQ(run.status, 2) << run.output << run.diagnostics;
      EXPECT_EQ(folder.files(), before);
    }
  }

  std::map<std::string, std::string> before;
  scratch_folder folder;
};

TEST_F(KeptInputs, AreNotReplacedWhicheverLookFails) {
  expect_refusals({"pack", "in", "-o", "in/other.dvi"});
  expect_refusals({"pack", "in", "-o", "link"});
  expect_refusals({"pack", "in", "-o", "net.bin", "--depfile", "link"});
  expect_refusals({"report", "net.dvi", "-o", "net.dvi"});
  expect_refusals({"extract", "net.dvi", "--force"});
}

}  // namespace
}  // namespace morvane::test

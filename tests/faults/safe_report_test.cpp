// morvane report to a file, ended in its middle: the file is as it was, and no other one is left.
#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <filesystem>

#include "faults/faulty_run.h"
#include "harness/packages.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

class SafeReport : public testing::TestWithParam<nameless_files> {
 protected:
  void SetUp() override {
    if (const std::string reason = no_faults_because(GetParam(), folder.path()); !reason.empty()) {
      GTEST_SKIP() << reason;
    }
    folder.write("net.bin", header(1) + bytes(dvi("net", 4)) + "AAAA");
    folder.write("out/net.html", "older");
  }

  /// A run to which something happens when its file was just made, and nothing is in it.
  run_result report(const std::string& effect) {
    return run_with({.kind = "chmod", .number = 1, .effect = effect},
                    morvane_words({"report", "net.bin", "-o", "out/net.html"}), folder.path(),
                    GetParam());
  }

  const std::map<std::string, std::string> older{{"net.html", "older"}};
  scratch_folder folder;
};

INSTANTIATE_TEST_SUITE_P(Files, SafeReport, testing::ValuesIn(both_kinds), kind_name);

TEST_P(SafeReport, LeavesNothingBehindWhenThePackageIsCut) {
  const run_result run = report("cut");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.diagnostics, "morvane: net.bin: the file was cut while it was read\n");
  EXPECT_TRUE(folder.files("out") == older);
}

TEST_P(SafeReport, LeavesNothingBehindAtAnySignal) {
  for (const int signal : {SIGTERM, SIGIO, SIGPWR, SIGSTKFLT, SIGRTMIN, SIGRTMAX}) {
    EXPECT_EQ(report("signal=" + std::to_string(signal)).status, 128 + signal);
    EXPECT_TRUE(folder.files("out") == older) << signal;
  }
}

}  // namespace
}  // namespace morvane::test

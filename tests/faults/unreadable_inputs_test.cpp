// morvane with inputs that fail while they are read: nothing that could not be read counts as read.
#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <filesystem>

#include "faults/faulty_run.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

class UnreadableInputs : public testing::Test {
 protected:
  void SetUp() override {
    if (const std::string reason = no_faults_because(morvane_path()); !reason.empty()) {
      GTEST_SKIP() << reason;
    }
    copy_sample(folder);
    folder.write("net.bin", "an older package");
  }

  /// Runs a command once for every call of a kind, which fails with EIO. Checks that each run tells
  /// of an unreadable file and ends with status 2. Returns how many there were.
  unsigned expect_refusals(const std::vector<std::string>& command, const std::string& kind) const {
    const unsigned calls = calls_of(command, folder.path())[kind];
    folder.write("net.bin", "an older package");
    for (unsigned number = 1; number <= calls; ++number) {
      SCOPED_TRACE(kind + " " + std::to_string(number));
      const run_result run = run_with({.kind = kind, .number = number, .effect = error_effect(EIO)},
                                      command, folder.path());
      EXPECT_EQ(run.status, 2);
      EXPECT_NE(run.output.find(" cannot be read: Input/output error"), std::string::npos)
          << run.output << run.diagnostics;
      EXPECT_NE(run.output.find(" [unreadable-file]\n"), std::string::npos) << run.output;
      EXPECT_EQ(folder.read("net.bin"), "an older package");
    }
    return calls;
  }

  const std::vector<std::string> lint = morvane_words({"lint", "in", "--vproc"});
  const std::vector<std::string> pack = morvane_words({"pack", "in", "-o", "net.bin", "--vproc"});
  scratch_folder folder;
};

TEST_F(UnreadableInputs, AreFoundByLintWhicheverReadFails) {
  EXPECT_GE(expect_refusals(lint, "read"), 3U);  // the headers
  EXPECT_GE(expect_refusals(lint, "opendir"), 1U);
  EXPECT_GE(expect_refusals(lint, "readdir"), 6U);
}

TEST_F(UnreadableInputs, AreNotPackedWhicheverReadFails) {
  EXPECT_GE(expect_refusals(pack, "read"), 9U);  // headers, images, and images to compare with
  EXPECT_GE(expect_refusals(pack, "readdir"), 6U);
}

TEST_F(UnreadableInputs, AreTakenAsFarAsTheyGoByTheTool) {
  const std::vector<std::string> command = tool_words({"-d", "in", "-f", "net.bin"});
  const run_result run =
      run_with({.kind = "read", .number = 1, .effect = error_effect(EIO)}, command, folder.path());
  EXPECT_EQ(run.status, 0);
}

/// A folder of DAGs that all have one name, and inputs that differ from the outputs of the first.
void put_repeating_dags(const scratch_folder& folder, unsigned dags, unsigned ports) {
  for (unsigned i = 0; i < dags; ++i) {
    std::string header = "#define net_DAG_NAME net\n#define net_image_size 1\n";
    for (unsigned port = 0; port < ports; ++port) {
      const std::string name = "p" + std::to_string(port);
      header += std::string("/* net HMB_") + (i == 0 ? "output " : "input ") + name +
                " */\n#define net_" + name + "_W " + std::to_string(i) + "\n";
    }
    folder.write("many/net_split_" + std::to_string(i) + ".h", header);
    folder.write("many/net_split_" + std::to_string(i) + ".dvi", "i");
  }
}

TEST_F(UnreadableInputs, AreNotWhatLintReadsTwice) {
  const std::vector<std::string> command = morvane_words({"lint", "many"});
  const auto calls = [&](unsigned dags, unsigned ports) {
    put_repeating_dags(folder, dags, ports);
    EXPECT_EQ(run_program(command, folder.path()).status, 0);
    return calls_of(command, folder.path());
  };
  auto few = calls(2, 1);
  auto many_ports = calls(2, 200);
  EXPECT_EQ(many_ports["open"], few["open"]);
  EXPECT_EQ(many_ports["read"], few["read"]);
  auto many_dags = calls(50, 1);
  EXPECT_EQ(many_dags["open"], few["open"] + 2 * 48) << "every header and every image";
  EXPECT_EQ(many_dags["read"], few["read"] + 48) << "every header";
}

}  // namespace
}  // namespace morvane::test

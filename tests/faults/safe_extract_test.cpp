// morvane extract, with one system call that fails: each file appears whole or not at all. All of
// it on a file system that makes files without a name, and on one that does not.
#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>

#include "faults/faulty_run.h"
#include "harness/packages.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

using file_contents = std::map<std::string, std::string>;

/// Two DVIs without ports. The second image takes two parts to write.
class SafeExtract : public testing::TestWithParam<nameless_files> {
 protected:
  void SetUp() override {
    if (const std::string reason = no_faults_because(GetParam(), folder.path()); !reason.empty()) {
      GTEST_SKIP() << reason;
    }
    folder.write("net.bin", header(2) + bytes(dvi("first", 4)) + bytes(dvi("second", large)) +
                                images["first.dvi"] + images["second.dvi"]);
    folder.make_folder("out");
  }

  /// Runs the command with a fault in a folder without outputs.
  run_result extract(const fault& fault) {
    for (const auto& entry : std::filesystem::directory_iterator(folder.path("out"))) {
      std::filesystem::remove(entry.path());
    }
    return run_with(fault, command, folder.path(), GetParam());
  }

  /// Checks that the outputs are whole. Returns how many there are.
  [[nodiscard]] std::size_t expect_whole_outputs() const {
    const file_contents outputs = folder.files("out");
    for (const auto& [name, content] : outputs) {
      const auto image = images.find(name);
      EXPECT_TRUE(image != images.end() && image->second == content) << name;
    }
    return outputs.size();
  }

  static constexpr std::uint32_t large = (1U << 20U) + 1;
  file_contents images{{"first.dvi", "AAAA"}, {"second.dvi", std::string(large, 'B')}};
  const std::vector<std::string> command = morvane_words({"extract", "net.bin", "-o", "out"});
  scratch_folder folder;
};

INSTANTIATE_TEST_SUITE_P(Files, SafeExtract, testing::ValuesIn(both_kinds), kind_name);

TEST_P(SafeExtract, WritesWholeFilesWhicheverCallFails) {
  auto calls = calls_of(command, folder.path(), GetParam());
  EXPECT_EQ(calls[GetParam() == nameless_files::possible ? "link" : "rename"], 2U);
  const std::vector<call_error> errors{
      {"open", EMFILE}, {"open", EACCES}, {"write", ENOSPC}, {"write", EIO},     {"stat", EIO},
      {"unlink", EIO},  {"close", EIO},   {"fcntl", EBADF},  {"rename", EACCES}, {"rename", ENOSPC},
      {"link", EACCES}, {"link", ENOSPC}, {"access", ENOENT}};
  const auto faults = faults_of(errors, calls);
  for (const fault& fault : faults) {
    SCOPED_TRACE(fault);
    const run_result run = extract(fault);
    if (expect_whole_outputs() < images.size()) {
      EXPECT_EQ(run.status, 2) << run.diagnostics;
    } else {
      EXPECT_TRUE(run.status == 0 || run.status == 2) << run.status;
    }
  }
  std::printf("%zu runs\n", faults.size());
  EXPECT_GT(faults.size(), 40U);
}

TEST_P(SafeExtract, GoesOnAfterInterruptionsAndShortCalls) {
  for (const fault& fault : faults_of(
           {{"write", "short"}, {"write", error_effect(EINTR)}, {"open", error_effect(EINTR)}},
           calls_of(command, folder.path(), GetParam()))) {
    SCOPED_TRACE(fault);
    EXPECT_EQ(extract(fault).status, 0);
    EXPECT_EQ(expect_whole_outputs(), 2U);
  }
}

TEST_P(SafeExtract, StopsSoonAtASignalAndLeavesWholeFiles) {
  const run_result run = extract({.kind = "copy", .number = 2, .effect = "signal=15"});
  EXPECT_EQ(run.status, 128 + SIGTERM);
  EXPECT_EQ(expect_whole_outputs(), 1U);
}

TEST_P(SafeExtract, WorksWhereAFileCannotBeRenamedToAFreeNameInOneStep) {
  for (const int error : {EINVAL, ENOSYS}) {
    const fault fault{
        .kind = "rename", .number = 1, .from_then_on = true, .effect = error_effect(error)};
    EXPECT_EQ(extract(fault).status, 0);
    EXPECT_EQ(expect_whole_outputs(), 2U);
    folder.write("out/second.dvi", "mine");
    EXPECT_EQ(run_with(fault, command, folder.path(), GetParam()).diagnostics,
              "morvane: out/first.dvi: the file exists; --force replaces it\nmorvane: "
              "out/second.dvi: the file exists; --force replaces it\n");
    EXPECT_EQ(folder.read("out/second.dvi"), "mine");
    EXPECT_EQ(folder.files("out").size(), 2U);
  }
}

TEST_P(SafeExtract, TellsWhyThePackageCannotBeReadAnyMore) {
  // The system does not copy to a file in append mode, so the image is written.
  std::vector<std::string> words = {"sh", "-c", "exec \"$@\" >>appended", "sh"};
  const auto extracting = morvane_words({"extract", "net.bin", "second", "-o", "-"});
  words.insert(words.end(), extracting.begin(), extracting.end());
  const std::map<std::string, std::string> reasons{
      {error_effect(EFAULT), "Input/output error"},  // as of a disk that fails
      {"cut", "the file was cut while it was read"}};
  for (const auto& [effect, reason] : reasons) {
    const run_result run = run_with({.kind = "write", .number = 1, .effect = effect}, words,
                                    folder.path(), GetParam());
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.diagnostics, "morvane: net.bin: " + reason + "\n");
  }
}

}  // namespace
}  // namespace morvane::test

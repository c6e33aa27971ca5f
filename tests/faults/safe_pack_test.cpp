// morvane pack, with one system call that fails: the package has its old bytes or the complete new
// ones, and no other file is left.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <random>
#include <thread>

#include "faults/faulty_run.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;

class SafePack : public testing::Test {
 protected:
  void SetUp() override {
    if (!fs::exists(morvane_path())) {
      GTEST_SKIP() << "morvane is not built";
    }
    copy_sample(folder);
    ASSERT_EQ(run_tool({"-d", "in", "-f", "expected", "-c"}, folder.path()).status, 0);
    new_bytes = folder.read("expected");
    fs::remove(folder.path("expected"));
    inputs = folder.files("in");
  }

  /// Checks that the folder holds the inputs and the package, and nothing else. Returns whether the
  /// package is the new one.
  bool expect_old_or_new() const {
    std::map<std::string, std::string> files = folder.files();
    const std::string package = files["net.bin"];
    files.erase("net.bin");
    EXPECT_EQ(files.size(), inputs.size());
    EXPECT_EQ(folder.files("in"), inputs);
    EXPECT_TRUE(package == new_bytes || package == old_bytes) << package.size();
    return package == new_bytes;
  }

  void put_old_package() const { folder.write("net.bin", old_bytes); }

  const std::string old_bytes = "an older package";
  const std::vector<std::string> command =
      morvane_words({"pack", "in", "-o", "net.bin", "--vproc"});
  const std::vector<std::string> quiet =
      morvane_words({"pack", "in", "-o", "net.bin", "--vproc", "--quiet"});
  std::string new_bytes;
  std::map<std::string, std::string> inputs;
  scratch_folder folder;
};

struct failing {
  const char* kind;
  int error;
};

TEST_F(SafePack, ReplacesThePackageOnlyWhenEveryCallSucceeds) {
  if (!can_make_faults()) {
    GTEST_SKIP() << "a preloaded library would reach the run prefix";
  }
  constexpr std::array faults{
      failing{"open", EMFILE},    failing{"open", EACCES}, failing{"read", EIO},
      failing{"write", ENOSPC},   failing{"write", EIO},   failing{"stat", EIO},
      failing{"opendir", EMFILE}, failing{"readdir", EIO}, failing{"unlink", EIO},
      failing{"close", EIO},      failing{"fcntl", EBADF}, failing{"rename", EIO},
      failing{"rename", EACCES},  failing{"sync", EIO},    failing{"sync", ENOSPC}};
  put_old_package();
  auto calls = calls_of(command, folder.path());
  EXPECT_EQ(calls["rename"], 1U);
  EXPECT_EQ(calls["sync"], 2U);
  unsigned runs = 0;
  unsigned replaced = 0;
  for (const auto& [kind, error] : faults) {
    for (unsigned number = 1; number <= calls[kind]; ++number) {
      for (const bool from_then_on : {false, true}) {
        SCOPED_TRACE(std::string(kind) + " " + std::to_string(number) +
                     (from_then_on ? " and on: " : ": ") + error_effect(error));
        put_old_package();
        const run_result run = run_with({.kind = kind,
                                         .number = number,
                                         .from_then_on = from_then_on,
                                         .effect = error_effect(error)},
                                        command, folder.path());
        const bool is_new = expect_old_or_new();
        ++runs;
        replaced += is_new ? 1 : 0;
        EXPECT_TRUE(run.status == 0 || run.status == 1 || run.status == 2) << run.status;
        if (!is_new) {
          EXPECT_NE(run.status, 0);
          EXPECT_TRUE(run.diagnostics.find("morvane: ") != std::string::npos ||
                      run.output.find("error: ") != std::string::npos ||
                      std::string(kind) == "write")
              << run.diagnostics;
        }
      }
    }
  }
  std::printf("%u runs, %u replaced the package\n", runs, replaced);
  EXPECT_GT(runs, 100U);
  EXPECT_GT(replaced, 0U);
}

TEST_F(SafePack, GoesOnAfterInterruptionsAndShortCalls) {
  if (!can_make_faults()) {
    GTEST_SKIP() << "a preloaded library would reach the run prefix";
  }
  put_old_package();
  auto calls = calls_of(command, folder.path());
  constexpr std::array<std::pair<const char*, const char*>, 5> effects{
      {{"read", "short"}, {"write", "short"}, {"read", "4"}, {"write", "4"}, {"open", "4"}}};
  static_assert(EINTR == 4);
  for (const auto& [kind, effect] : effects) {
    for (unsigned number = 1; number <= calls[kind]; ++number) {
      SCOPED_TRACE(std::string(kind) + " " + std::to_string(number) + ": " + effect);
      put_old_package();
      const run_result run =
          run_with({.kind = kind, .number = number, .effect = effect}, command, folder.path());
      EXPECT_EQ(run.status, 0) << run.diagnostics;
      EXPECT_TRUE(expect_old_or_new());
    }
  }
}

TEST_F(SafePack, NoticesADiskThatStoresOtherBytes) {
  if (!can_make_faults()) {
    GTEST_SKIP() << "a preloaded library would reach the run prefix";
  }
  put_old_package();
  const run_result run =
      run_with({.kind = "write", .number = 1, .effect = "garbled"}, quiet, folder.path());
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.diagnostics,
            "morvane: net.bin: the new package does not hold what was written to it\n");
  EXPECT_FALSE(expect_old_or_new());
}

TEST_F(SafePack, NoticesAnInputThatChangesMeanwhile) {
  if (!can_make_faults()) {
    GTEST_SKIP() << "a preloaded library would reach the run prefix";
  }
  put_old_package();
  const run_result run =
      run_with({.kind = "write", .number = 1, .effect = "touch=in/wake_word_split_1.dvi"}, quiet,
               folder.path());
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.diagnostics,
            "morvane: in/wake_word_split_1.dvi: was changed while it was packed\n");
  EXPECT_FALSE(expect_old_or_new());
}

TEST_F(SafePack, LeavesNothingBehindAtASignal) {
  const int output = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  unsigned ended = 0;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    for (int delay = 0; delay < 40; ++delay) {
      put_old_package();
      const pid_t process = start_program(command, folder.path(), output);
      std::this_thread::sleep_for(std::chrono::microseconds(150 * delay));
      ::kill(process, signal);
      const int status = wait_for(process);
      EXPECT_TRUE(status == 0 || status == 128 + signal) << status;
      ended += status != 0 ? 1 : 0;
      EXPECT_TRUE(expect_old_or_new() || status != 0);
    }
  }
  ::close(output);
  std::printf("%u of 120 runs were ended\n", ended);
}

TEST_F(SafePack, HasTheOldOrTheNewPackageWhenItIsKilled) {
  const int output = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  std::mt19937 random(1);
  unsigned killed = 0;
  unsigned replaced = 0;
  for (int i = 0; i < 250; ++i) {
    put_old_package();
    const pid_t process = start_program(command, folder.path(), output);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 8000));
    ::kill(process, SIGKILL);
    killed += wait_for(process) == 128 + SIGKILL ? 1 : 0;
    const std::string package = folder.read("net.bin");
    EXPECT_TRUE(package == old_bytes || package == new_bytes) << package.size();
    replaced += package == new_bytes ? 1 : 0;
    EXPECT_EQ(folder.files("in"), inputs);
    for (const auto& entry : fs::directory_iterator(folder.path())) {
      if (entry.path().filename().string().starts_with(".net.bin.tmp")) {
        fs::remove(entry.path());  // nobody can clean up after SIGKILL
      }
    }
  }
  ::close(output);
  std::printf("%u of 250 runs were killed, %u replaced the package\n", killed, replaced);
}

}  // namespace
}  // namespace morvane::test

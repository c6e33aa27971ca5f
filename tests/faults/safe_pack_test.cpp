// morvane pack, with one system call that fails: the package has its old bytes or the complete new
// ones, and no other file is left. All of it on a file system that makes files without a name, and
// on one that does not.
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

class SafePack : public testing::TestWithParam<nameless_files> {
 protected:
  void SetUp() override {
    if (const std::string reason = no_runs_because(GetParam(), folder.path()); !reason.empty()) {
      GTEST_SKIP() << reason;
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

  /// Removes the temporary files that a run left. Returns their number.
  std::size_t remove_temporary_files() const {
    std::vector<fs::path> left;
    for (const auto& entry : fs::directory_iterator(folder.path())) {
      if (entry.path().filename().string().starts_with(".morvane-")) {
        left.push_back(entry.path());
      }
    }
    for (const fs::path& path : left) {
      fs::remove(path);
    }
    return left.size();
  }

  run_result pack_with(const fault& fault) const {
    return run_with(fault, command, folder.path(), GetParam());
  }

  std::map<std::string, unsigned> calls() const {
    return calls_of(command, folder.path(), GetParam());
  }

  const std::string old_bytes = "an older package";
  const std::string line = "net.bin: packed, 3 DVIs, 13 ports, with vproc records, 25379 bytes\n";
  const std::vector<std::string> command =
      morvane_words({"pack", "in", "-o", "net.bin", "--vproc"});
  std::string new_bytes;
  std::map<std::string, std::string> inputs;
  scratch_folder folder;
};

/// The tests that need faults.
class SafePackWithFaults : public SafePack {
 protected:
  void SetUp() override {
    if (const std::string reason = no_faults_because(morvane_path()); !reason.empty()) {
      GTEST_SKIP() << reason;
    }
    SafePack::SetUp();
    if (!IsSkipped()) {
      put_old_package();
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Files, SafePack, testing::ValuesIn(both_kinds), kind_name);
INSTANTIATE_TEST_SUITE_P(Files, SafePackWithFaults, testing::ValuesIn(both_kinds), kind_name);

TEST_P(SafePackWithFaults, ReplacesThePackageOnlyWhenEveryCallSucceeds) {
  const std::vector<call_error> errors{
      {"open", EMFILE},   {"open", EACCES}, {"read", EIO},       {"write", ENOSPC},
      {"write", EIO},     {"stat", EIO},    {"opendir", EMFILE}, {"readdir", EIO},
      {"unlink", EIO},    {"close", EIO},   {"fcntl", EBADF},    {"rename", EIO},
      {"rename", EACCES}, {"sync", EIO},    {"sync", ENOSPC},    {"link", EPERM},
      {"access", EACCES}, {"chmod", EPERM}, {"chown", EPERM},    {"seek", EIO}};
  auto calls = this->calls();
  EXPECT_EQ(calls["rename"], 1U);
  EXPECT_EQ(calls["sync"], 2U);
  EXPECT_EQ(calls["link"], GetParam() == nameless_files::possible ? 2U : 0U);
  EXPECT_EQ(calls["access"], GetParam() == nameless_files::possible ? 1U : 0U);
  const auto faults = faults_of(errors, calls);
  unsigned replaced = 0;
  for (const fault& fault : faults) {
    SCOPED_TRACE(fault);
    put_old_package();
    const run_result run = pack_with(fault);
    const bool is_new = expect_old_or_new();
    replaced += is_new ? 1 : 0;
    EXPECT_TRUE(run.status == 0 || run.status == 1 || run.status == 2) << run.status;
    EXPECT_EQ(run.diagnostics.find(".morvane-"), std::string::npos) << run.diagnostics;
    if (!is_new) {
      EXPECT_NE(run.status, 0);
    }
    if (fault.kind == "write") {
      continue;  // messages cannot be written either
    }
    if (is_new && run.status != 0) {
      EXPECT_TRUE(run.diagnostics.starts_with(
          "morvane: net.bin: is in place, but may not survive a power failure: "))
          << run.diagnostics;
    } else if (!is_new) {
      EXPECT_TRUE(run.diagnostics.find("morvane: ") != std::string::npos ||
                  run.output.find("error: ") != std::string::npos)
          << run.diagnostics;
    }
  }
  std::printf("%zu runs, %u replaced the package\n", faults.size(), replaced);
  EXPECT_GT(faults.size(), 100U);
  EXPECT_GT(replaced, 0U);
}

TEST_P(SafePackWithFaults, GoesOnAfterInterruptionsAndShortCallsAndWithoutMapping) {
  auto calls = this->calls();
  EXPECT_EQ(calls["map"], 1U);
  const std::vector<call_effect> effects{{"read", "short"},
                                         {"write", "short"},
                                         {"read", error_effect(EINTR)},
                                         {"write", error_effect(EINTR)},
                                         {"open", error_effect(EINTR)},
                                         {"sync", error_effect(EINTR)},
                                         {"sync", error_effect(EINVAL)},
                                         {"map", error_effect(ENODEV)}};
  for (const fault& fault : faults_of(effects, calls)) {
    SCOPED_TRACE(fault);
    put_old_package();
    const run_result run = pack_with(fault);
    EXPECT_EQ(run.status, 0) << run.diagnostics;
    EXPECT_TRUE(expect_old_or_new());
  }
}

TEST_P(SafePackWithFaults, NoticesADiskThatStoresOtherBytes) {
  const run_result run = pack_with({.kind = "write", .number = 1, .effect = "garbled"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.diagnostics,
            "morvane: net.bin: the new file does not hold what was written to it: nothing is "
            "packed\n");
  EXPECT_FALSE(expect_old_or_new());
}

TEST_P(SafePackWithFaults, NoticesAnInputThatChangesMeanwhile) {
  const run_result run =
      pack_with({.kind = "write", .number = 1, .effect = "touch=in/wake_word_split_1.dvi"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.diagnostics,
            "morvane: in/wake_word_split_1.dvi: was changed while it was packed\n");
  EXPECT_FALSE(expect_old_or_new());
}

TEST_P(SafePackWithFaults, SaysThatThePackageIsInPlaceWhenItsFolderCannotBeSynchronised) {
  const run_result run = pack_with({.kind = "sync", .number = 2, .effect = error_effect(EIO)});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.diagnostics,
            "morvane: net.bin: is in place, but may not survive a power failure: Input/output "
            "error\n");
  EXPECT_TRUE(expect_old_or_new());
}

TEST_P(SafePackWithFaults, TellsThatThePackageIsInPlaceBeforeASignalEndsIt) {
  const unsigned last_write = calls()["write"];
  for (const fault& fault : {morvane::test::fault{"rename", 1, false, "signal=15"},
                             {"sync", 2, false, "signal=15"},
                             {"write", last_write, false, "signal=15"}}) {
    put_old_package();
    const run_result run = pack_with(fault);
    EXPECT_EQ(run.status, 128 + SIGTERM);
    EXPECT_EQ(run.output, line) << fault.kind;
    EXPECT_TRUE(expect_old_or_new());
  }
}

TEST_P(SafePackWithFaults, LeavesNothingBehindAtAnySignal) {
  for (const int signal :
       {SIGHUP, SIGINT, SIGQUIT, SIGALRM, SIGTERM, SIGUSR1, SIGUSR2, SIGIO, SIGPROF, SIGVTALRM,
        SIGSTKFLT, SIGXCPU, SIGPWR, SIGRTMIN, SIGRTMIN + 7, SIGRTMAX}) {
    const run_result run =
        pack_with({.kind = "write", .number = 1, .effect = "signal=" + std::to_string(signal)});
    EXPECT_EQ(run.status, 128 + signal);
    EXPECT_FALSE(expect_old_or_new()) << signal;
  }
}

TEST_P(SafePackWithFaults, LeavesNothingBehindWhenItsOwnFileIsCut) {
  const unsigned reads = calls()["read"];
  unsigned noticed = 0;
  for (unsigned number = 1; number <= reads; ++number) {
    put_old_package();
    const run_result run = pack_with({.kind = "read", .number = number, .effect = "cut"});
    if (!expect_old_or_new()) {
      EXPECT_EQ(run.status, 2);
      EXPECT_EQ(run.diagnostics, "morvane: net.bin: the file was cut while it was read\n");
      ++noticed;
    }
  }
  EXPECT_GE(noticed, 3U);
}

TEST_P(SafePackWithFaults, IsKilledBeforeAnyCallAndLeavesAtMostATemporaryFile) {
  const bool is_nameless = GetParam() == nameless_files::possible;
  std::vector<call_effect> kills;
  for (const char* kind : {"open", "stat", "write", "read", "sync", "close", "chmod", "chown",
                           "link", "rename", "unlink"}) {
    kills.emplace_back(kind, "signal=9");
  }
  const auto faults = faults_of(kills, calls());
  for (const fault& fault : faults) {
    for (const bool has_older : {false, true}) {
      SCOPED_TRACE(fault);
      fs::remove(folder.path("net.bin"));
      if (has_older) {
        put_old_package();
      }
      const run_result run = pack_with(fault);
      EXPECT_TRUE(run.status == 128 + SIGKILL || !has_older) << run.status;
      // Only to be renamed, a file gets a temporary name for a moment.
      const bool may_leave_one = !is_nameless || fault.kind == "rename";
      EXPECT_LE(remove_temporary_files(), may_leave_one ? 1U : 0U);
      if (has_older || folder.exists("net.bin")) {
        expect_old_or_new();
      }
    }
  }
  std::printf("%zu runs were killed\n", 2 * faults.size());
  EXPECT_GT(faults.size(), 50U);
}

TEST_P(SafePack, LeavesNothingBehindAtASignal) {
  const int output = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  unsigned ended = 0;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    for (int delay = 0; delay < 40; ++delay) {
      put_old_package();
      const pid_t process = start_program(words_with(GetParam(), command), folder.path(), output);
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

TEST_P(SafePack, HasTheOldOrTheNewPackageWhenItIsKilled) {
  const int output = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  std::mt19937 random(1);
  unsigned killed = 0;
  unsigned replaced = 0;
  std::size_t left = 0;
  for (int i = 0; i < 250; ++i) {
    put_old_package();
    const pid_t process = start_program(words_with(GetParam(), command), folder.path(), output);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 8000));
    ::kill(process, SIGKILL);
    killed += wait_for(process) == 128 + SIGKILL ? 1 : 0;
    left += remove_temporary_files();
    replaced += expect_old_or_new() ? 1 : 0;
  }
  ::close(output);
  std::printf("%u of 250 runs were killed, %u replaced the package, %zu left a temporary file\n",
              killed, replaced, left);
}

}  // namespace
}  // namespace morvane::test

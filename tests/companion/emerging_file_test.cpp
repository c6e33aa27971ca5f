// A file that appears only when it is complete.
#include "companion/emerging_file.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <map>

#include "companion/held_signals.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

using companion::emerging_file;
using companion::held_signals;
using file_contents = std::map<std::string, std::string>;

/// How a process ends that runs a function: the signal that ended it, or its status.
template <class Function>
int ending_of(Function function) {
  const pid_t child = ::fork();
  if (child == 0) {
    function();
    ::_exit(0);
  }
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  return WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status);
}

TEST(EmergingFile, HasItsNameOnlyWhenItIsPutInPlace) {
  const scratch_folder folder;
  const file_handle handle = open_folder(folder.path());
  emerging_file file(handle);
  EXPECT_EQ(file.create("net.dvi"), 0);
  EXPECT_EQ(::write(file.descriptor(), "AAAA", 4), 4);
  EXPECT_FALSE(folder.exists("net.dvi"));
  EXPECT_EQ(file.put_in_place(false), 0);
  EXPECT_EQ(folder.files(), (file_contents{{"net.dvi", "AAAA"}}));
}

TEST(EmergingFile, IsRemovedWhenItIsNotPutInPlace) {
  const scratch_folder folder;
  const file_handle handle = open_folder(folder.path());
  {
    emerging_file file(handle);
    EXPECT_EQ(file.create("net.dvi"), 0);
    EXPECT_EQ(folder.files().size(), 1U);
  }
  EXPECT_EQ(folder.files(), file_contents{});
}

TEST(EmergingFile, ReplacesAFileOnlyOnRequest) {
  const scratch_folder folder;
  folder.write("net.dvi", "mine");
  const file_handle handle = open_folder(folder.path());
  {
    emerging_file file(handle);
    EXPECT_EQ(file.create("net.dvi"), 0);
    EXPECT_EQ(file.put_in_place(false), EEXIST);
    EXPECT_EQ(folder.read("net.dvi"), "mine");
    EXPECT_EQ(file.put_in_place(true), 0);
  }
  EXPECT_EQ(folder.files(), (file_contents{{"net.dvi", ""}}));
}

TEST(EmergingFile, TakesAnotherNameWhenAFileWasLeftBehind) {
  const scratch_folder folder;
  const file_handle handle = open_folder(folder.path());
  emerging_file left_behind(handle);
  emerging_file file(handle);
  EXPECT_EQ(left_behind.create("net.dvi"), 0);
  EXPECT_EQ(file.create("net.dvi"), 0);
  EXPECT_EQ(folder.files().size(), 2U);
}

TEST(EmergingFile, IsNotMadeBesideAHundredFilesLeftBehind) {
  const scratch_folder folder;
  for (int i = 0; i < 100; ++i) {
    folder.write(".net.dvi.tmp" + std::to_string(::getpid()) + "." + std::to_string(i), "");
  }
  const file_handle handle = open_folder(folder.path());
  emerging_file file(handle);
  EXPECT_EQ(file.create("net.dvi"), EEXIST);
  EXPECT_EQ(folder.files().size(), 100U);
}

TEST(EmergingFile, IsRemovedBeforeASignalEndsTheProgram) {
  for (const int signal :
       {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGALRM, SIGUSR1, SIGUSR2, SIGXCPU, SIGVTALRM, SIGPROF}) {
    const scratch_folder folder;
    const file_handle handle = open_folder(folder.path());
    EXPECT_EQ(ending_of([&] {
                const held_signals signals;
                emerging_file file(handle);
                file.create("net.dvi");
                ::raise(signal);
                folder.write("is_waiting", signals.is_waiting() ? "yes" : "no");
              }),
              signal);
    EXPECT_EQ(folder.files(), (file_contents{{"is_waiting", "yes"}}));
  }
}

TEST(HeldSignals, TellWhetherOneIsWaiting) {
  const held_signals signals;
  EXPECT_FALSE(signals.is_waiting());
  for (const int signal :
       {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGALRM, SIGUSR1, SIGUSR2, SIGXCPU, SIGVTALRM, SIGPROF}) {
    sigset_t one{};
    ::sigemptyset(&one);
    ::sigaddset(&one, signal);
    ::raise(signal);
    EXPECT_TRUE(signals.is_waiting());
    int taken = 0;
    ::sigwait(&one, &taken);
    EXPECT_EQ(taken, signal);
    EXPECT_FALSE(signals.is_waiting());
  }
}

TEST(HeldSignals, LeaveIgnoredAndBlockedSignalsAlone) {
  EXPECT_EQ(ending_of([] {
              std::signal(SIGHUP, SIG_IGN);
              const held_signals signals;
              ::raise(SIGHUP);
              ::_exit(signals.is_waiting() ? 1 : 0);
            }),
            0);
  EXPECT_EQ(ending_of([] {
              const held_signals outer;
              ::raise(SIGTERM);
              const held_signals inner;
              ::_exit(inner.is_waiting() ? 1 : 0);
            }),
            0);
}

}  // namespace
}  // namespace morvane::test

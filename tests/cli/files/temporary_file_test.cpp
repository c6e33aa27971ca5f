// A file that appears only when it is complete.
#include "cli/files/temporary_file.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <map>
#include <memory>
#include <vector>

#include "cli/files/blocked_signals.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

using cli::blocked_signals;
using cli::temporary_name;
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

// What others send, and what ends a program that does not handle it.
const std::vector<int> ending_signals = {
    SIGHUP,  SIGINT,    SIGQUIT,   SIGTERM, SIGALRM, SIGUSR1,  SIGUSR2,      SIGIO,       SIGXCPU,
    SIGPROF, SIGVTALRM, SIGSTKFLT, SIGPWR,  SIGPIPE, SIGRTMIN, SIGRTMIN + 7, SIGRTMAX - 4};

TEST(TemporaryName, IsAlwaysAnotherOne) {
  const scratch_folder folder;
  const file_handle handle = open_folder(folder.path());
  const temporary_name one(handle.descriptor());
  const temporary_name other(handle.descriptor());
  EXPECT_EQ(std::string(one.text()).size(), 23U);
  EXPECT_TRUE(std::string(one.text()).starts_with(".morvane-"));
  EXPECT_STRNE(one.text(), other.text());
}

TEST(TemporaryName, IsRemovedAtOnceFromEveryFileThatHasOne) {
  const scratch_folder folder;
  const file_handle handle = open_folder(folder.path());
  auto first = std::make_unique<temporary_name>(handle.descriptor());
  const temporary_name second(handle.descriptor());
  const temporary_name third(handle.descriptor());
  const std::string gone = first->text();
  first.reset();
  for (const std::string& name : {gone, std::string(second.text()), std::string(third.text())}) {
    folder.write(name, "");
  }
  cli::remove_temporary_files();
  EXPECT_EQ(folder.files(), (file_contents{{gone, ""}}));
}

TEST(BlockedSignals, TellWhetherOneIsWaiting) {
  const blocked_signals signals;
  EXPECT_FALSE(signals.is_waiting());
  for (const int signal : ending_signals) {
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

TEST(BlockedSignals, LeaveAloneWhatEndsNoProgramOrComesFromItsOwnFaults) {
  EXPECT_EQ(ending_of([] {
              const blocked_signals signals;
              for (const int signal : {SIGCHLD, SIGCONT, SIGURG, SIGWINCH}) {
                ::raise(signal);
              }
              ::_exit(signals.is_waiting() ? 1 : 0);
            }),
            0);
  for (const int signal : {SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV, SIGSYS, SIGTRAP}) {
    EXPECT_EQ(ending_of([&] {
                const blocked_signals signals;
                std::signal(signal, SIG_DFL);
                ::raise(signal);
                ::_exit(0);
              }),
              signal);
  }
}

TEST(BlockedSignals, LeaveIgnoredAndBlockedSignalsAlone) {
  EXPECT_EQ(ending_of([] {
              std::signal(SIGHUP, SIG_IGN);
              const blocked_signals signals;
              ::raise(SIGHUP);
              ::_exit(signals.is_waiting() ? 1 : 0);
            }),
            0);
  EXPECT_EQ(ending_of([] {
              const blocked_signals outer;
              ::raise(SIGTERM);
              const blocked_signals inner;
              ::_exit(inner.is_waiting() ? 1 : 0);
            }),
            0);
}

}  // namespace
}  // namespace morvane::test

#include "cli/files/blocked_signals.h"

#include <array>

namespace morvane::cli {

namespace {

/// Those of a program's own faults, and those that end no program.
constexpr std::array other_signals{SIGABRT, SIGBUS,  SIGFPE,  SIGILL,  SIGSEGV,
                                   SIGSYS,  SIGTRAP, SIGCHLD, SIGCONT, SIGSTOP,
                                   SIGTSTP, SIGTTIN, SIGTTOU, SIGURG,  SIGWINCH};

/// One that is ignored, as nohup does, ends nothing, but would wait all the same.
bool is_ignored(int signal) {
  struct sigaction action {};
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-union-access): the system's interface
  return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

blocked_signals::blocked_signals() {
  ::sigfillset(&held_);
  for (const int signal : other_signals) {
    ::sigdelset(&held_, signal);
  }
  ::sigprocmask(SIG_BLOCK, &held_, &before_);
}

blocked_signals::~blocked_signals() {
  ::sigprocmask(SIG_SETMASK, &before_, nullptr);
}

bool blocked_signals::is_waiting() const {
  sigset_t waiting{};
  ::sigpending(&waiting);
  for (int signal = 1; signal <= SIGRTMAX; ++signal) {
    const bool is_held = ::sigismember(&held_, signal) == 1 && ::sigismember(&before_, signal) == 0;
    if (is_held && ::sigismember(&waiting, signal) == 1 && !is_ignored(signal)) {
      return true;
    }
  }
  return false;
}

}  // namespace morvane::cli

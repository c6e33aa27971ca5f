#include "companion/held_signals.h"

#include <algorithm>
#include <array>

namespace morvane::companion {

namespace {

// What terminals, users, timers and job systems send.
constexpr std::array ending_signals{SIGHUP,  SIGINT,  SIGQUIT, SIGTERM,   SIGALRM,
                                    SIGUSR1, SIGUSR2, SIGXCPU, SIGVTALRM, SIGPROF};

/// One that is ignored, as nohup does, ends nothing, but would wait all the same.
bool is_ignored(int signal) {
  struct sigaction action {};
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-union-access): the system's interface
  return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

held_signals::held_signals() {
  ::sigemptyset(&held_);
  for (const int signal : ending_signals) {
    if (!is_ignored(signal)) {
      ::sigaddset(&held_, signal);
    }
  }
  ::sigprocmask(SIG_BLOCK, &held_, &before_);
}

held_signals::~held_signals() {
  ::sigprocmask(SIG_SETMASK, &before_, nullptr);
}

bool held_signals::is_waiting() const {
  sigset_t waiting{};
  ::sigpending(&waiting);
  return std::ranges::any_of(ending_signals, [&](int signal) {
    const bool is_held = ::sigismember(&held_, signal) == 1 && ::sigismember(&before_, signal) == 0;
    return is_held && ::sigismember(&waiting, signal) == 1;
  });
}

}  // namespace morvane::companion

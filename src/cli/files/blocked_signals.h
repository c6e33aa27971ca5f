// Signals that end the program, held back while a temporary file exists.
#pragma once

#include <csignal>

namespace morvane::cli {

/// Holds back every signal that ends a program and that others send: users, terminals, timers, job
/// systems. One that came in the meantime ends the program at the end of the scope: what is
/// declared after this object is cleaned up before. The signals of a program's own faults, such as
/// SIGSEGV, cannot be held back.
class blocked_signals {
 public:
  blocked_signals();
  blocked_signals(const blocked_signals&) = delete;
  blocked_signals& operator=(const blocked_signals&) = delete;
  blocked_signals(blocked_signals&&) = delete;
  blocked_signals& operator=(blocked_signals&&) = delete;
  ~blocked_signals();

  /// Whether one of them is waiting to end the program.
  [[nodiscard]] bool is_waiting() const;

 private:
  sigset_t held_{};
  sigset_t before_{};
};

}  // namespace morvane::cli

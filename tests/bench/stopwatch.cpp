// Runs a command some times over and prints how long all runs took, in microseconds, and the
// greatest resident memory of one, in KiB.
//
//     stopwatch STATUS OUTPUT TIMES COMMAND [ARGUMENT ...]
//
// The command's standard output goes to the file OUTPUT. It must end with the exit status STATUS.

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

/// Runs the command once. Returns its exit status, -1 when there is none.
int run(const char* output, char** command, rusage& used) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output, O_WRONLY | O_CREAT | O_TRUNC,
                                   0666);
  pid_t child = 0;
  int status = 0;
  const bool ended = posix_spawnp(&child, command[0], &actions, nullptr, command, environ) == 0 &&
                     wait4(child, &status, 0, &used) == child && WIFEXITED(status);
  posix_spawn_file_actions_destroy(&actions);
  return ended ? WEXITSTATUS(status) : -1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 5) {
    std::fprintf(stderr, "usage: stopwatch STATUS OUTPUT TIMES COMMAND [ARGUMENT ...]\n");
    return 2;
  }
  const int wanted_status = std::atoi(argv[1]);
  const int times = std::atoi(argv[3]);
  long peak_kib = 0;
  const auto begin = std::chrono::steady_clock::now();
  for (int i = 0; i < times; ++i) {
    rusage used{};
    const int status = run(argv[2], argv + 4, used);
    if (status != wanted_status) {
      std::fprintf(stderr, "stopwatch: %s: exit status %d instead of %d\n", argv[4], status,
                   wanted_status);
      return 1;
    }
    peak_kib = std::max(peak_kib, used.ru_maxrss);
  }
  const auto taken = std::chrono::steady_clock::now() - begin;
  std::printf(
      "%lld %ld\n",
      static_cast<long long>(std::chrono::duration_cast<std::chrono::microseconds>(taken).count()),
      peak_kib);
  return 0;
}

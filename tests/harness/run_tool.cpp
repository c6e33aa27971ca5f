#include "harness/run_tool.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "harness/scratch_folder.h"

namespace morvane::test {

namespace {

constexpr unsigned longest_run = 500;  // seconds

/// A program's surroundings are the same on every machine, and it leaves no memory image behind.
void settle_surroundings() {
  for (const char* variable : {"LANG", "LANGUAGE", "LC_ALL", "LC_MESSAGES", "POSIXLY_CORRECT"}) {
    ::unsetenv(variable);
  }
  constexpr rlimit no_core{.rlim_cur = 0, .rlim_max = 0};
  ::setrlimit(RLIMIT_CORE, &no_core);
  ::alarm(longest_run);
}

[[noreturn]] void become(const std::vector<std::string>& arguments, const std::string& folder,
                         const std::string& output, const std::string& diagnostics) {
  std::vector<char*> words;
  for (const std::string& argument : arguments) {
    words.push_back(const_cast<char*>(argument.c_str()));
  }
  words.push_back(nullptr);
  settle_surroundings();
  const int write_flags = O_WRONLY | O_CREAT | O_TRUNC;
  const bool ready = ::dup2(::open("/dev/null", O_RDONLY), STDIN_FILENO) >= 0 &&
                     ::dup2(::open(output.c_str(), write_flags, 0600), STDOUT_FILENO) >= 0 &&
                     ::dup2(::open(diagnostics.c_str(), write_flags, 0600), STDERR_FILENO) >= 0 &&
                     ::chdir(folder.c_str()) == 0;
  if (ready) {
    ::execvp(words[0], words.data());
  }
  ::_exit(127);
}

run_result run_prefixed(const std::string& program, const std::vector<std::string>& arguments,
                        const std::string& folder) {
  std::vector<std::string> words = run_prefix();
  words.push_back(program);
  words.insert(words.end(), arguments.begin(), arguments.end());
  return run_program(words, folder);
}

}  // namespace

run_result run_program(const std::vector<std::string>& arguments, const std::string& folder) {
  const scratch_folder streams;
  const std::string output = streams.path("output");
  const std::string diagnostics = streams.path("diagnostics");
  const pid_t child = ::fork();
  if (child < 0) {
    throw std::runtime_error("cannot start a process");
  }
  if (child == 0) {
    become(arguments, folder, output, diagnostics);
  }
  int status = 0;
  rusage usage{};
  ::wait4(child, &status, 0, &usage);
  return {.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status),
          .output = streams.read("output"),
          .diagnostics = streams.read("diagnostics"),
          .peak_kib = usage.ru_maxrss};
}

run_result run_tool(const std::vector<std::string>& arguments, const std::string& folder) {
  return run_prefixed(tool_path(), arguments, folder);
}

run_result run_morvane(const std::vector<std::string>& arguments, const std::string& folder) {
  return run_prefixed(morvane_path(), arguments, folder);
}

std::vector<std::string> run_prefix() {
  const char* chosen = std::getenv("MORVANE_RUN_PREFIX");
  std::istringstream words(chosen != nullptr ? chosen : MORVANE_RUN_PREFIX);
  return {std::istream_iterator<std::string>(words), {}};
}

std::string tool_path() {
  return MORVANE_TOOL;
}
std::string morvane_path() {
  return MORVANE_COMPANION;
}
std::string library_path() {
  return MORVANE_LIBRARY;
}
std::string source_folder() {
  return MORVANE_SOURCE_FOLDER;
}

}  // namespace morvane::test

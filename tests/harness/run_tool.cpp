#include "harness/run_tool.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "harness/scratch_folder.h"

namespace morvane::test {

namespace {

constexpr unsigned longest_run = 500;  // seconds

/// Gives a program the same environment on every machine, and no core dump.
void settle_surroundings() {
  for (const char* variable : {"LANG", "LANGUAGE", "LC_ALL", "LC_MESSAGES", "POSIXLY_CORRECT"}) {
    ::unsetenv(variable);
  }
  constexpr rlimit no_core{.rlim_cur = 0, .rlim_max = 0};
  ::setrlimit(RLIMIT_CORE, &no_core);
  ::alarm(longest_run);
}

[[noreturn]] void become(const std::vector<std::string>& arguments, const std::string& folder,
                         int output, int diagnostics) {
  std::vector<char*> words;
  for (const std::string& argument : arguments) {
    words.push_back(const_cast<char*>(argument.c_str()));
  }
  words.push_back(nullptr);
  settle_surroundings();
  const bool ready = ::dup2(::open("/dev/null", O_RDONLY), STDIN_FILENO) >= 0 &&
                     ::dup2(output, STDOUT_FILENO) >= 0 &&
                     ::dup2(diagnostics, STDERR_FILENO) >= 0 && ::chdir(folder.c_str()) == 0;
  if (ready) {
    ::execvp(words[0], words.data());
  }
  ::_exit(127);
}

pid_t start(const std::vector<std::string>& arguments, const std::string& folder, int output,
            int diagnostics) {
  const pid_t child = ::fork();
  if (child < 0) {
    throw std::runtime_error("cannot start a process");
  }
  if (child == 0) {
    become(arguments, folder, output, diagnostics);
  }
  return child;
}

/// Waits for the end of a process. Returns its exit status, or 128 + the signal that ended it.
int wait_for(pid_t process, rusage& usage) {
  int status = 0;
  while (::wait4(process, &status, 0, &usage) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

std::vector<std::string> prefixed(const std::string& program,
                                  const std::vector<std::string>& arguments) {
  std::vector<std::string> words = run_prefix();
  words.push_back(program);
  words.insert(words.end(), arguments.begin(), arguments.end());
  return words;
}

int open_stream(const std::string& path) {
  return ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
}

}  // namespace

run_result run_program(const std::vector<std::string>& arguments, const std::string& folder) {
  const scratch_folder streams;
  const int output = open_stream(streams.path("output"));
  const int diagnostics = open_stream(streams.path("diagnostics"));
  const pid_t child = start(arguments, folder, output, diagnostics);
  ::close(output);
  ::close(diagnostics);
  rusage usage{};
  const int status = wait_for(child, usage);
  return {.status = status,
          .output = streams.read("output"),
          .diagnostics = streams.read("diagnostics"),
          .peak_kib = usage.ru_maxrss};
}

pid_t start_program(const std::vector<std::string>& arguments, const std::string& folder,
                    int output) {
  const int diagnostics = open_stream("/dev/null");
  const pid_t child = start(arguments, folder, output, diagnostics);
  ::close(diagnostics);
  return child;
}

int wait_for(pid_t process) {
  rusage usage{};
  return wait_for(process, usage);
}

run_result run_tool(const std::vector<std::string>& arguments, const std::string& folder) {
  return run_program(tool_words(arguments), folder);
}

run_result run_morvane(const std::vector<std::string>& arguments, const std::string& folder) {
  return run_program(morvane_words(arguments), folder);
}

std::vector<std::string> tool_words(const std::vector<std::string>& arguments,
                                    std::vector<std::string> starter) {
  const std::vector<std::string> words = prefixed(tool_path(), arguments);
  starter.insert(starter.end(), words.begin(), words.end());
  return starter;
}

std::vector<std::string> morvane_words(const std::vector<std::string>& arguments) {
  return prefixed(morvane_path(), arguments);
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
  return MORVANE_CLI;
}
std::string library_path() {
  return MORVANE_LIBRARY;
}
std::string source_folder() {
  return MORVANE_SOURCE_FOLDER;
}

void copy_files(const std::string& source, const scratch_folder& folder, std::string_view name) {
  namespace fs = std::filesystem;
  folder.make_folder(name);
  for (const auto& entry : fs::recursive_directory_iterator(source)) {
    const fs::path copy = folder.path(name) / entry.path().lexically_relative(source);
    if (entry.is_directory()) {
      fs::create_directory(copy);
    } else {
      fs::copy_file(entry, copy);
      fs::permissions(copy, fs::perms::owner_write, fs::perm_options::add);
    }
  }
}

void copy_sample(const scratch_folder& folder) {
  copy_files(source_folder() + "/examples/wake_word", folder, "in");
}

}  // namespace morvane::test

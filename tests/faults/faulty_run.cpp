#include "faults/faulty_run.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>

#include "harness/scratch_folder.h"

namespace morvane::test {

namespace {

/// A path of the library that LD_PRELOAD can hold: blanks and colons separate libraries there.
const std::string& library_path() {
  static const scratch_folder folder;
  static const std::string path = [] {
    std::filesystem::create_symlink(MORVANE_FAULT_LIBRARY, folder.path("fault_library.so"));
    return folder.path("fault_library.so");
  }();
  return path;
}

/// The command with the library preloaded. A sanitizer's runtime asks to be the first
/// library; it works as the second one too.
std::vector<std::string> with_library(const std::string& request, nameless_files nameless,
                                      const std::vector<std::string>& command) {
  std::vector<std::string> words = {"env", "LD_PRELOAD=" + library_path(),
                                    "ASAN_OPTIONS=verify_asan_link_order=0", request};
  if (nameless == nameless_files::impossible) {
    words.emplace_back("MORVANE_NO_TMPFILE=1");
  }
  words.insert(words.end(), command.begin(), command.end());
  return words;
}

}  // namespace

std::string error_effect(int error) {
  return std::to_string(error);
}

std::ostream& operator<<(std::ostream& shown, const fault& fault) {
  return shown << fault.kind << " " << fault.number << (fault.from_then_on ? " and on: " : ": ")
               << fault.effect;
}

std::vector<fault> faults_of(const std::vector<call_effect>& effects,
                             const std::map<std::string, unsigned>& calls) {
  std::vector<fault> faults;
  for (const auto& [kind, effect] : effects) {
    for (unsigned number = 1; number <= calls.at(kind); ++number) {
      faults.push_back({.kind = kind, .number = number, .effect = effect});
    }
  }
  return faults;
}

std::vector<fault> faults_of(const std::vector<call_error>& errors,
                             const std::map<std::string, unsigned>& calls) {
  std::vector<fault> faults;
  for (const auto& [kind, error] : errors) {
    for (fault one : faults_of({call_effect(kind, error_effect(error))}, calls)) {
      faults.push_back(one);
      one.from_then_on = true;
      faults.push_back(one);
    }
  }
  return faults;
}

std::string no_faults_because(const std::string& program) {
  if (!std::filesystem::exists(program)) {
    return "the program is not built";
  }
  return run_prefix().empty() ? "" : "a preloaded library would reach the run prefix";
}

std::string no_runs_because(nameless_files nameless, const std::string& folder) {
  if (!std::filesystem::exists(morvane_path())) {
    return "the program is not built";
  }
  if (nameless == nameless_files::impossible) {
    return no_faults_because(morvane_path());
  }
  const int file = ::open(folder.c_str(), O_RDWR | O_TMPFILE | O_CLOEXEC, 0600);
  ::close(file);
  return file >= 0 ? "" : "the file system has files with names only";
}

std::string no_faults_because(nameless_files nameless, const std::string& folder) {
  const std::string reason = no_faults_because(morvane_path());
  return reason.empty() ? no_runs_because(nameless, folder) : reason;
}

run_result run_with(const fault& fault, const std::vector<std::string>& command,
                    const std::string& folder, nameless_files nameless) {
  const std::string request = "MORVANE_FAULT=" + fault.kind + ":" + std::to_string(fault.number) +
                              (fault.from_then_on ? "+" : "") + ":" + fault.effect;
  return run_program(with_library(request, nameless, command), folder);
}

std::map<std::string, unsigned> calls_of(const std::vector<std::string>& command,
                                         const std::string& folder, nameless_files nameless) {
  const scratch_folder scratch;
  run_program(with_library("MORVANE_FAULT_COUNTS=" + scratch.path("counts"), nameless, command),
              folder);
  std::istringstream lines(scratch.read("counts"));
  std::map<std::string, unsigned> counts;
  std::string kind;
  unsigned number = 0;
  while (lines >> kind >> number) {
    counts[kind] = number;
  }
  return counts;
}

std::vector<std::string> words_with(nameless_files nameless,
                                    const std::vector<std::string>& command) {
  return nameless == nameless_files::impossible
             ? with_library("MORVANE_FAULT_COUNTS=/dev/null", nameless, command)
             : command;
}

}  // namespace morvane::test

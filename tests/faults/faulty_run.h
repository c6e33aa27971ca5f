// Runs the tool with one system call that fails or does less than it was asked to.
#pragma once

#include <array>
#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "harness/run_tool.h"

namespace morvane::test {

/// What happens to one call of a run.
struct fault {
  std::string kind;     // of the call, as in fault_library.c
  unsigned number = 1;  // of the call among those of its kind, from 1
  bool from_then_on = false;
  std::string effect;  // the number of an error or another one, as in fault_library.c
};

/// Whether a run can make files without a name.
enum class nameless_files { possible, impossible };

inline constexpr std::array both_kinds{nameless_files::possible, nameless_files::impossible};

/// The name of a test with this parameter.
inline constexpr auto kind_name = [](const auto& test) {
  return test.param == nameless_files::possible ? "Nameless" : "Named";
};

/// How GoogleTest shows the parameter.
inline void PrintTo(nameless_files kind, std::ostream* shown) {
  *shown << (kind == nameless_files::possible ? "nameless files" : "temporary names");
}

/// Why runs of morvane cannot be like this in a folder: its file system must make such files, or
/// the fault library must be able to hide that. Empty where they can.
std::string no_runs_because(nameless_files nameless, const std::string& folder);

/// The effect of an error such as ENOSPC.
std::string error_effect(int error);

/// How a fault is shown.
std::ostream& operator<<(std::ostream& shown, const fault& fault);

/// A kind of call and what happens to it: an effect, or an error.
using call_effect = std::pair<const char*, std::string>;
using call_error = std::pair<const char*, int>;

/// Faults at each of the calls that a command makes. An error comes once and from then on, another
/// effect comes once.
std::vector<fault> faults_of(const std::vector<call_effect>& effects,
                             const std::map<std::string, unsigned>& calls);
std::vector<fault> faults_of(const std::vector<call_error>& errors,
                             const std::map<std::string, unsigned>& calls);

/// Why no faults can be made in runs of a program, such as tool_path() or morvane_path(): it is not
/// built, or runs behind an emulator or a memory checker. Empty where they can.
std::string no_faults_because(const std::string& program);

/// The same of runs of morvane that are like this in a folder.
std::string no_faults_because(nameless_files nameless, const std::string& folder);

/// Runs a command, such as tool_words or morvane_words, in a folder with a fault.
run_result run_with(const fault& fault, const std::vector<std::string>& command,
                    const std::string& folder, nameless_files nameless = nameless_files::possible);

/// How many calls of each kind a command makes in a folder.
std::map<std::string, unsigned> calls_of(const std::vector<std::string>& command,
                                         const std::string& folder,
                                         nameless_files nameless = nameless_files::possible);

/// The words of a command that runs without faults.
std::vector<std::string> words_with(nameless_files nameless,
                                    const std::vector<std::string>& command);

}  // namespace morvane::test

// Runs the tool with one system call that fails or does less than it was asked to.
#pragma once

#include <array>
#include <map>
#include <ostream>
#include <string>
#include <string_view>
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

/// Whether the runs of a test can be like this in a folder: its file system must make such files,
/// or the fault library must be able to hide that.
bool can_have(nameless_files nameless, const std::string& folder);

/// The effect of an error such as ENOSPC.
std::string error_effect(int error);

/// Whether faults can be made here: not behind an emulator or a memory checker.
bool can_make_faults();

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

// Runs the tool with one system call that fails or does less than it was asked to.
#pragma once

#include <map>
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

/// The effect of an error such as ENOSPC.
std::string error_effect(int error);

/// Whether faults can be made here: not behind an emulator or a memory checker.
bool can_make_faults();

/// Runs a command, such as tool_words or morvane_words, in a folder with a fault.
run_result run_with(const fault& fault, const std::vector<std::string>& command,
                    const std::string& folder);

/// How many calls of each kind a command makes in a folder.
std::map<std::string, unsigned> calls_of(const std::vector<std::string>& command,
                                         const std::string& folder);

}  // namespace morvane::test

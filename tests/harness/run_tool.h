// Starts the built tool as its users do and tells what it printed.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace morvane::test {

/// What a run of a program left behind.
struct run_result {
  int status = -1;          // the exit status, or 128 + the signal that ended it
  std::string output;       // standard output
  std::string diagnostics;  // standard error
  long peak_kib = 0;        // greatest resident memory, the emulator's or checker's included
};

/// Starts a program in a folder, with nothing on standard input, and waits for its end. It runs in
/// the C locale whatever the environment says, and one that hangs is ended by SIGALRM.
run_result run_program(const std::vector<std::string>& arguments, const std::string& folder);

/// Starts a program likewise and does not wait. Its standard output is the descriptor, which the
/// caller closes; its diagnostics are lost. Returns the process.
pid_t start_program(const std::vector<std::string>& arguments, const std::string& folder,
                    int output);

/// Waits for the end of a started program. Returns its status as in run_result.
int wait_for(pid_t process);

/// Starts morvane_gen with arguments in a folder, behind the prefix command of this build.
run_result run_tool(const std::vector<std::string>& arguments, const std::string& folder);

/// The command of run_tool.
std::vector<std::string> tool_words(const std::vector<std::string>& arguments);

/// The words of the command that the tool is started with: an emulator, a memory checker, or none.
/// From MORVANE_RUN_PREFIX in the environment, otherwise from the build.
std::vector<std::string> run_prefix();

/// Paths of the built program and library, and of the source tree.
std::string tool_path();
std::string library_path();
std::string source_folder();

}  // namespace morvane::test

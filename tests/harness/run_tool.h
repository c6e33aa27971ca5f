// Starts the built tool as its users do and tells what it printed.
#pragma once

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

/// Starts morvane_gen with arguments in a folder, behind the prefix command of this build.
run_result run_tool(const std::vector<std::string>& arguments, const std::string& folder);

/// Starts morvane in the same way.
run_result run_morvane(const std::vector<std::string>& arguments, const std::string& folder);

/// The words of the command that the tool is started with: an emulator, a memory checker, or none.
/// From MORVANE_RUN_PREFIX in the environment, otherwise from the build.
std::vector<std::string> run_prefix();

/// Paths of the built programs and library, and of the source tree.
std::string tool_path();
std::string morvane_path();
std::string library_path();
std::string source_folder();

}  // namespace morvane::test

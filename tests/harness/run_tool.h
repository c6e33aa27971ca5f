// Starts the built tool as its users do and returns its output.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

namespace morvane::test {

class scratch_folder;

/// The result of a run of a program.
struct run_result {
  int status = -1;          // the exit status, or 128 + the signal that ended it
  std::string output;       // standard output
  std::string diagnostics;  // standard error
  long peak_kib = 0;        // greatest resident memory, including an emulator or checker
};

/// Starts a program in a folder, with an empty standard input, and waits for its end. The program
/// runs in the C locale. If it hangs, SIGALRM ends it.
run_result run_program(const std::vector<std::string>& arguments, const std::string& folder);

/// Starts a program in the same way and does not wait for it. Its standard output is the
/// descriptor, which the caller closes. Its diagnostics are lost. Returns the process.
pid_t start_program(const std::vector<std::string>& arguments, const std::string& folder,
                    int output);

/// Waits for the end of a started program. Returns its status as in run_result.
int wait_for(pid_t process);

/// Starts morvane_gen with arguments in a folder, with the run prefix.
run_result run_tool(const std::vector<std::string>& arguments, const std::string& folder);

/// Starts morvane in the same way.
run_result run_morvane(const std::vector<std::string>& arguments, const std::string& folder);

/// The commands of run_tool and run_morvane. The starter is the words of a program that starts the
/// command.
std::vector<std::string> tool_words(const std::vector<std::string>& arguments,
                                    std::vector<std::string> starter = {});
std::vector<std::string> morvane_words(const std::vector<std::string>& arguments);

/// The run prefix: the words of a command that starts the tool, such as an emulator or a memory
/// checker, or none. It comes from MORVANE_RUN_PREFIX in the environment, otherwise from the build.
std::vector<std::string> run_prefix();

/// Paths of the built programs and library, and of the source tree.
std::string tool_path();
std::string morvane_path();
std::string library_path();
std::string source_folder();

/// Copies all files below a folder of the source tree to a folder in a scratch folder. The copies
/// can be written, also when the source tree cannot.
void copy_files(const std::string& source, const scratch_folder& folder, std::string_view name);

/// Copies the sample folder of the source tree to the folder "in" in the same way.
void copy_sample(const scratch_folder& folder);

}  // namespace morvane::test

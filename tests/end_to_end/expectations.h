// Comparisons of runs, bytes and folders with what a test expects.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "harness/run_tool.h"

namespace morvane::test {

/// The content of files by their paths in a folder.
using folder_content = std::map<std::string, std::string>;

/// The pack run of most tests: the folder "in" becomes "net.bin".
inline const std::vector<std::string> pack = {"-d", "in", "-f", "net.bin"};
inline const std::vector<std::string> pack_with_vproc = {"-d", "in", "-f", "net.bin", "-c"};

/// The message when the numbers of images and headers differ.
inline constexpr const char* counts_differ =
    "error: number of DVI files doesn't match that of Header files.\n";

/// The warnings about a header "in/_net.h" without ports.
inline const std::string no_ports =
    "warning: fail to find HMB input info in in/_net.h\n"
    "warning: fail to find HMB output info in in/_net.h\n";

/// The closing message of a pack run.
std::string saved(const std::string& size);

/// Checks the exit status and the whole standard output of a run.
void expect_run(const run_result& run, int status, std::string_view output);

/// Checks bytes, and reports the first difference.
void expect_bytes(std::string_view actual, std::string_view expected);

/// Checks that a folder holds exactly these files with this content.
void expect_files(const folder_content& actual, const folder_content& expected);

/// The message for a text that is longer than a limit.
std::string length_message(std::string_view limit, std::string_view text);

/// The content of a file of this folder, such as "two_dags/stdout".
std::string expected_file(std::string_view name);

/// Every file below a folder of this folder.
folder_content expected_files(std::string_view name);

/// The bytes that a text describes: pairs of hexadecimal digits, "00*N" for N zero bytes, and
/// comments from "#" to the end of the line.
std::string bytes_of_hex(std::string_view text);

}  // namespace morvane::test

// What the tests compare: runs, bytes and folders.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "harness/run_tool.h"

namespace morvane::test {

/// File contents by the file's path in its folder.
using folder_content = std::map<std::string, std::string>;

/// Checks a run's exit status and all that it printed on standard output.
void expect_run(const run_result& run, int status, std::string_view output);

/// Checks bytes, and names the first place at which they differ.
void expect_bytes(std::string_view actual, std::string_view expected);

/// Checks that a folder holds these files and no others, with this content.
void expect_files(const folder_content& actual, const folder_content& expected);

/// The message about a text that is longer than a limit.
std::string length_message(std::string_view limit, std::string_view text);

/// The content of a file of this folder, such as "two_dags/stdout".
std::string expected_file(std::string_view name);

/// Every file below a folder of this folder.
folder_content expected_files(std::string_view name);

/// The bytes that a text describes: pairs of hexadecimal digits, "00*N" for N zero bytes, and
/// comments from "#" to the end of the line.
std::string bytes_of_hex(std::string_view text);

}  // namespace morvane::test

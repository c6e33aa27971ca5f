// A test of morvane_gen: its folder, the compiler output in it, the runs, and what is expected of
// them.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "end_to_end/package_records.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {

/// The content of files by their paths in a folder.
using folder_content = std::map<std::string, std::string>;

/// The pack run of most tests: the folder "in" becomes "net.bin".
inline const std::vector<std::string> pack = {"-d", "in", "-f", "net.bin"};
inline const std::vector<std::string> pack_with_vproc = {"-d", "in", "-f", "net.bin", "-c"};

/// The message when the numbers of images and headers differ.
inline constexpr const char* counts_differ =
    "error: number of DVI files doesn't match that of Header files.\n";

/// The warnings about a header of the folder "in" without ports.
std::string no_ports_in(const std::string& header);
inline const std::string no_ports = no_ports_in("_net.h");

/// The closing message of a pack run.
std::string saved(const std::string& size);

/// The message for a text that is longer than a limit.
std::string length_message(std::string_view limit, std::string_view text);

/// Checks the exit status and the whole standard output of a run.
void expect_run(const run_result& run, int status, std::string_view output);

/// Checks bytes, and reports the first difference.
void expect_bytes(std::string_view actual, std::string_view expected);

/// Checks that a folder holds exactly these files with this content.
void expect_files(const folder_content& actual, const folder_content& expected);

/// Writes a DVI, STEM.dvi, and its header, _STEM.h, into the folder "in".
void put_dag(const scratch_folder& folder, std::string_view stem, std::string_view header,
             std::string_view image = "");

/// The lines that give the name of a DAG and the size of its image. A size of 0 is left out.
std::string dag_lines(std::string_view dag_name, unsigned image_size = 0);

/// Packs one DVI with this header and image. Returns the package after its package header.
std::string packed(std::string_view header, std::string_view image = "",
                   const std::vector<std::string>& arguments = pack);

/// A line of this number of characters, without its line break: the text, and blanks after it.
std::string padded(std::string_view text, std::size_t length);

/// A test in a folder of its own, where the tool runs.
class tool_test : public testing::Test {
 protected:
  run_result tool(const std::vector<std::string>& arguments) const;

  /// Runs the tool and checks its exit status and its whole standard output.
  void expect_tool(const std::vector<std::string>& arguments, int status,
                   std::string_view output) const;

  void put_dag(std::string_view stem, std::string_view header, std::string_view image = "") const;

  scratch_folder folder;
};

}  // namespace morvane::test

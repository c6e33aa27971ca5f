// Two DAGs with ports, images and vproc records. The input folder, the package byte by byte, the
// report and the parse folder are in two_dags/.
#include <gtest/gtest.h>

#include <filesystem>

#include "end_to_end/expectations.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

constexpr const char* no_output_ports =
    "warning: fail to find HMB output info in input/_vision_split_1.h\n";
constexpr const char* no_variables_in_vision =
    "warning: fail to find vproc self-defined variables in input/_vision_split_1.h\n";

std::string package_bytes() {
  return bytes_of_hex(expected_file("two_dags/package.hex"));
}

void copy_input(const scratch_folder& folder) {
  for (const auto& [name, content] : expected_files("two_dags/input")) {
    folder.write("input/" + name, content);
  }
}

TEST(PackageBytes, OfTwoDagsWithVprocRecords) {
  const scratch_folder folder;
  copy_input(folder);
  expect_run(run_tool({"-d", "input", "-f", "vision.bin", "-c"}, folder.path()), 0,
             std::string(no_output_ports) + no_variables_in_vision +
                 "Save to file vision.bin with file size 4290.\n\n");
  expect_bytes(folder.read("vision.bin"), package_bytes());
}

TEST(PackageBytes, WithoutVprocOptionEndAfterTheLastImage) {
  const scratch_folder folder;
  copy_input(folder);
  expect_run(run_tool({"-d", "input", "-f", "vision.bin"}, folder.path()), 0,
             std::string(no_output_ports) + "Save to file vision.bin with file size 3598.\n\n");
  expect_bytes(folder.read("vision.bin"), package_bytes().substr(0, 3598));
}

TEST(PackageBytes, AreReportedAndWrittenBackOut) {
  const scratch_folder folder;
  folder.write("vision.bin", package_bytes());
  expect_run(run_tool({"-f", "vision.bin", "-c", "-v"}, folder.path()), 1,
             expected_file("two_dags/report"));
  expect_files(folder.files("parse"), expected_files("two_dags/parse"));
}

TEST(PackageBytes, AreReportedRightAfterPacking) {
  const scratch_folder folder;
  copy_input(folder);
  expect_run(run_tool({"-d", "input", "-f", "vision.bin", "-c", "-v"}, folder.path()), 0,
             std::string(no_output_ports) + no_variables_in_vision +
                 "Save to file vision.bin with file size 4290.\n\n" +
                 expected_file("two_dags/report"));
  expect_bytes(folder.read("vision.bin"), package_bytes());
  expect_files(folder.files("parse"), expected_files("two_dags/parse"));
}

}  // namespace
}  // namespace morvane::test

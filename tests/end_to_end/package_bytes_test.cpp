// Two DAGs with ports, images and vproc records. The input folder, the package byte by byte, the
// report and the parse folder are in two_dags/.
#include <sstream>

#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

const std::string no_output_ports =
    "warning: fail to find HMB output info in two_dags/input/_vision_split_1.h\n";
const std::string no_variables =
    "warning: fail to find vproc self-defined variables in two_dags/input/_vision_split_1.h\n";

/// The bytes that a text describes: pairs of hexadecimal digits, "00*N" for N zero bytes, and
/// comments from "#" to the end of the line.
std::string bytes_of_hex(const std::string& text) {
  std::string bytes;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line.substr(0, line.find('#')));
    for (std::string word; words >> word;) {
      const std::size_t star = word.find('*');
      const int value = std::stoi(word.substr(0, star), nullptr, 16);
      const std::size_t times = star == std::string::npos ? 1 : std::stoul(word.substr(star + 1));
      bytes.append(times, static_cast<char>(value));
    }
  }
  return bytes;
}

class PackageBytes : public tool_test {
 protected:
  void SetUp() override {
    copy_files(source_folder() + "/tests/end_to_end/two_dags", folder, "two_dags");
    package = bytes_of_hex(folder.read("two_dags/package.hex"));
    report = folder.read("two_dags/report");
  }

  std::string package;
  std::string report;
};

TEST_F(PackageBytes, OfTwoDagsWithoutVprocRecordsEndAfterTheLastImage) {
  expect_tool({"-d", "two_dags/input", "-f", "vision.bin"}, 0,
              no_output_ports + "Save to file vision.bin with file size 3598.\n\n");
  expect_bytes(folder.read("vision.bin"), package.substr(0, 3598));
}

TEST_F(PackageBytes, AreReportedAndWrittenBackOut) {
  folder.write("vision.bin", package);
  expect_tool({"-f", "vision.bin", "-c", "-v"}, 1, report);
  expect_files(folder.files("parse"), folder.files("two_dags/parse"));
}

TEST_F(PackageBytes, AreReportedRightAfterPacking) {
  expect_tool(
      {"-d", "two_dags/input", "-f", "vision.bin", "-c", "-v"}, 0,
      no_output_ports + no_variables + "Save to file vision.bin with file size 4290.\n\n" + report);
  expect_bytes(folder.read("vision.bin"), package);
  expect_files(folder.files("parse"), folder.files("two_dags/parse"));
}

}  // namespace
}  // namespace morvane::test

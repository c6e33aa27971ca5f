// morvane explain, as a user starts it.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "cli/findings/findings.h"
#include "cli/outcome.h"
#include "harness/run_tool.h"

namespace morvane::test {
namespace {

TEST(Explain, TellsWhatACodeMeansWithAnExampleAndWhatToDo) {
  expect_outcome(run_morvane({"explain", "no-dvis", "image-cut"}, "."), 0,
                 "no-dvis (error)\n"
                 "\n"
                 "The package has no DVI, so nothing was checked.\n"
                 "\n"
                 "    net.bin:0x8: error: the package has no DVI, so nothing was checked "
                 "[no-dvis]\n"
                 "\n"
                 "morvane_gen writes no such package. Find out where the file comes from.\n"
                 "\n"
                 "image-cut (error)\n"
                 "\n"
                 "The package ends inside the image of a DVI.\n"
                 "\n"
                 "    net.bin:0x1264: error: DVI 1: the image is cut: 64 bytes are needed, and 63 "
                 "are left [image-cut]\n"
                 "\n"
                 "Copy or pack again. If a fresh package has the same fault, the image file is\n"
                 "shorter than the header says with _image_size.\n");
}

TEST(Explain, ShowsALinkAsItsText) {
  const run_result explained = run_morvane({"explain", "ports-cut"}, ".");
  EXPECT_TRUE(explained.output.ends_with("may end like this too: see header_macros.md.\n"))
      << explained.output;
}

/// The lines that are longer than a terminal is wide.
std::vector<std::string> long_lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (line.size() > 80) {
      lines.push_back(line);
    }
  }
  return lines;
}

TEST(Explain, FitsATerminalButForExamples) {
  for (const cli::finding_kind& kind : cli::finding_kinds) {
    const run_result explained = run_morvane({"explain", std::string(kind.code)}, ".");
    EXPECT_EQ(explained.status, 0);
    for (const std::string& line : long_lines(explained.output)) {
      EXPECT_TRUE(line.starts_with("    ")) << line;
    }
  }
}

TEST(Explain, ListsEveryCodeUnderItsSeverity) {
  const run_result list = run_morvane({"explain"}, ".");
  EXPECT_EQ(list.status, 0);
  EXPECT_TRUE(
      list.output.starts_with("errors:\n  header-cut             The package is shorter than "
                              "its header.\n"))
      << list.output;
  EXPECT_NE(list.output.find("  vproc-size-disagrees   vproc_records_size is not the sum of the "
                             "variables and\n                         the SMB blocks.\n"),
            std::string::npos)
      << list.output;
  EXPECT_NE(list.output.find("\nwarnings:\n  repeated-dag-name      "), std::string::npos);
  EXPECT_NE(list.output.find("\n\nnotes:\n  "), std::string::npos);
  for (const cli::finding_kind& kind : cli::finding_kinds) {
    EXPECT_NE(list.output.find("\n  " + std::string(kind.code) + "  "), std::string::npos)
        << kind.code;
  }
  EXPECT_TRUE(long_lines(list.output).empty());
}

TEST(Explain, RefusesACodeThatDoesNotExist) {
  expect_outcome(run_morvane({"explain", "no-dvis", "no-dvi"}, "."), 2, "",
                 "morvane: there is no code \"no-dvi\"; morvane explain lists all codes\n");
}

}  // namespace
}  // namespace morvane::test

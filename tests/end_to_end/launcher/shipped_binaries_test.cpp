// The files of the program and its library: what the library exports, and from where both run.
#include <algorithm>
#include <filesystem>
#include <sstream>

#include "end_to_end/driver/usage_text.h"
#include "end_to_end/inspection_output.h"
#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;

/// Starts a program, which is a copy of the tool, with the run prefix.
run_result run_copy(const std::string& program, const std::vector<std::string>& arguments,
                    const std::string& folder) {
  std::vector<std::string> words = run_prefix();
  words.push_back(program);
  words.insert(words.end(), arguments.begin(), arguments.end());
  return run_program(words, folder);
}

void copy_into(const scratch_folder& folder, const std::string& file) {
  fs::copy_file(file, folder.path(fs::path(file).filename().string()));
}

using Library = tool_test;

TEST_F(Library, DefinesOneDynamicSymbol) {
  const run_result run = run_program(
      {"nm", "--dynamic", "--defined-only", "--format=posix", library_path()}, folder.path());
  if (run.status == 127) {
    GTEST_SKIP() << "nm is not installed";
  }
  ASSERT_EQ(run.status, 0) << run.diagnostics;
  EXPECT_EQ(run.output.substr(0, run.output.find_last_of('T') + 1), "morvane_main T");
  EXPECT_EQ(std::ranges::count(run.output, '\n'), 1);
}

using Pair = tool_test;

TEST_F(Pair, RunsFromAnotherFolderWhenMovedTogether) {
  copy_into(folder, tool_path());
  copy_into(folder, library_path());
  put_dag("net", dag_lines("net", 5), "image");
  const std::string program = folder.path("morvane_gen");
  expect_run(run_copy(program, {"--version"}, "/"), 1, version_line);
  expect_run(run_copy(program, {"-d", "in"}, folder.path()), 0,
             no_ports + "Save to file morvane_gen.bin with file size 173.\n\n");
}

TEST_F(Pair, TakesItsLibraryFromItsOwnFolder) {
  copy_into(folder, tool_path());
  // Without its library in the same folder the program does not start: it searches nowhere else.
  expect_run(run_copy(folder.path("morvane_gen"), {"--version"}, folder.path()), 127, "");
}

using WorkingFolder = tool_test;

TEST_F(WorkingFolder, IsWhereRelativePathsBegin) {
  put_dag("net", dag_lines("net", 5), "image");
  folder.make_folder("work/out");
  expect_run(
      run_tool({"-d", "../in", "-f", "../net.bin", "-p", "out", "-v"}, folder.path("work")), 0,
      "warning: fail to find HMB input info in ../in/_net.h\n"
      "warning: fail to find HMB output info in ../in/_net.h\n"
      "Save to file ../net.bin with file size 173.\n\n" +
          report_begin({{.img_size = 5, .pkg_size = 5, .dag_name = "net"}}) + report_end("out"));
  EXPECT_EQ(folder.read("work/out/parse/net.dvi"), "image");
  EXPECT_TRUE(folder.exists("net.bin"));
}

}  // namespace
}  // namespace morvane::test

// Options, and which run they choose: usage, version, inspection or packing.
#include <gtest/gtest.h>

#include "end_to_end/compiler_output.h"
#include "end_to_end/driver/usage_text.h"
#include "end_to_end/expectations.h"
#include "end_to_end/inspection_output.h"
#include "end_to_end/package_records.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

// The report on a package without DVIs, written to ./parse.
const std::string report_on_nothing = report_begin({}) + report_end();

TEST(CommandLine, WithoutArgumentsShowsTheUsageAndFails) {
  const scratch_folder folder;
  expect_run(run_tool({}, folder.path()), 255, usage_text);
}

TEST(CommandLine, WithoutInputFolderAndInspectionShowsTheUsageAndFails) {
  const scratch_folder folder;
  const std::vector<std::vector<std::string>> command_lines = {
      {"word"}, {"-c"}, {"--vproc"}, {"-f", "net.bin"}, {"-p", "."}, {"--"}, {"-"}, {""}};
  for (const auto& arguments : command_lines) {
    SCOPED_TRACE(arguments.front());
    expect_run(run_tool(arguments, folder.path()), 255, usage_text);
  }
  expect_files(folder.files(), {});
}

TEST(CommandLine, HelpShowsTheUsageAndReturnsOne) {
  const scratch_folder folder;
  expect_run(run_tool({"-h"}, folder.path()), 1, usage_text);
  expect_run(run_tool({"--help"}, folder.path()), 1, usage_text);
}

TEST(CommandLine, VersionShowsOneLineAndReturnsOne) {
  const scratch_folder folder;
  expect_run(run_tool({"--version"}, folder.path()), 1, version_line);
}

TEST(CommandLine, VersionWinsOverHelpAndPacking) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net"));
  expect_run(run_tool({"--version", "-h", "-d", "in"}, folder.path()), 1, version_line);
  expect_run(run_tool({"-v", "-d", "in", "-h", "--version"}, folder.path()), 1, version_line);
  EXPECT_FALSE(folder.exists("morvane_gen.bin"));
}

TEST(CommandLine, HelpWinsOverPacking) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net"));
  expect_run(run_tool({"-h", "-d", "in"}, folder.path()), 1, usage_text);
  EXPECT_FALSE(folder.exists("morvane_gen.bin"));
}

TEST(CommandLine, VerboseAloneInspectsTheDefaultPackage) {
  const scratch_folder folder;
  folder.write("morvane_gen.bin", package_header(0));
  expect_run(run_tool({"-v"}, folder.path()), 1, report_on_nothing);
  EXPECT_TRUE(folder.exists("parse"));
}

TEST(CommandLine, InspectionReturnsOneAlsoWhenThereIsNoPackage) {
  const scratch_folder folder;
  expect_run(run_tool({"-v"}, folder.path()), 1, "can't open file morvane_gen.bin\n");
  expect_run(run_tool({"--verbose", "-f", "net.bin"}, folder.path()), 1,
             "can't open file net.bin\n");
  EXPECT_FALSE(folder.exists("parse"));
}

TEST(CommandLine, AnInputFolderNamedDirpathCountsAsNotGiven) {
  const scratch_folder folder;
  folder.write("dirpath/net.dvi", "");
  folder.write("dirpath/net.h", dag_lines("net"));
  expect_run(run_tool({"-d", "dirpath"}, folder.path()), 255, usage_text);
  expect_run(run_tool({"-d", "dirpath", "-v"}, folder.path()), 1,
             "can't open file morvane_gen.bin\n");
  EXPECT_FALSE(folder.exists("morvane_gen.bin"));
}

TEST(CommandLine, TheSameInputFolderUnderAnotherPathIsPacked) {
  const scratch_folder folder;
  folder.write("dirpath/net.dvi", "");
  folder.write("dirpath/net.h", dag_lines("net"));
  expect_run(run_tool({"-d", "./dirpath"}, folder.path()), 0,
             "warning: fail to find HMB input info in ./dirpath/net.h\n"
             "warning: fail to find HMB output info in ./dirpath/net.h\n"
             "Save to file morvane_gen.bin with file size 168.\n"
             "\n");
}

TEST(CommandLine, EveryOptionHasAShortAndALongForm) {
  const std::vector<std::vector<std::string>> command_lines = {
      {"-d", "in", "-f", "net.bin", "-p", "out", "-v", "-c"},
      {"--dir", "in", "--filename", "net.bin", "--parsedir", "out", "--verbose", "--vproc"},
      {"--dir=in", "--filename=net.bin", "--parsedir=out", "--verb", "--vp"},
      {"-din", "-fnet.bin", "-pout", "-vc"},
      {"-cvdin", "-vcfnet.bin", "--pa", "out"},
  };
  for (const auto& arguments : command_lines) {
    SCOPED_TRACE(arguments.front());
    const scratch_folder folder;
    folder.make_folder("out");
    put_dag(folder, "net", dag_lines("net") + "/* $gain */\n");
    expect_run(run_tool(arguments, folder.path()), 0,
               no_ports + saved("316") + report_begin({{.dag_name = "net"}}) +
                   "vproc_id: 0 dag_name: net variable_num: 1 smb_num: 0\n"
                   "\n"
                   "var: gain\t boffset = 0\t bsize = 0\n"
                   "\n"
                   "\n" +
                   report_end("out"));
    EXPECT_TRUE(folder.exists("out/parse/net.dvi"));
  }
}

TEST(CommandLine, ALaterOptionReplacesAnEarlierOne) {
  const scratch_folder folder;
  folder.write("right.bin", package_header(0));
  folder.make_folder("right");
  expect_run(run_tool({"-f", "wrong.bin", "-p", "wrong", "-v", "-v", "-f", "right.bin",
                       "--parsedir", "right", "-d", "wrong", "-d", "dirpath"},
                      folder.path()),
             1, report_begin({}) + report_end("right"));
}

TEST(CommandLine, WordsThatAreNoOptionsAreLeftAlone) {
  const scratch_folder folder;
  folder.write("net.bin", package_header(0));
  expect_run(run_tool({"first", "-f", "net.bin", "second", "-v", "third"}, folder.path()), 1,
             report_on_nothing);
}

TEST(CommandLine, ADoubleDashEndsTheOptions) {
  const scratch_folder folder;
  expect_run(run_tool({"-f", "net.bin", "--", "-v"}, folder.path()), 255, usage_text);
}

}  // namespace
}  // namespace morvane::test

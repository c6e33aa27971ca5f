// Options, and which run they choose: usage, version, inspection or packing.
#include "end_to_end/driver/usage_text.h"
#include "end_to_end/inspection_output.h"
#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

// The report on a package without DVIs, written to ./parse.
const std::string report_on_nothing = report_begin({}) + report_end();

using CommandLine = tool_test;

TEST_F(CommandLine, WithoutArgumentsShowsTheUsageAndFails) {
  expect_tool({}, 255, usage_text);
}

TEST_F(CommandLine, WithoutInputFolderAndInspectionShowsTheUsageAndFails) {
  const std::vector<std::vector<std::string>> command_lines = {
      {"word"}, {"-c"}, {"--vproc"}, {"-f", "net.bin"}, {"-p", "."}, {"--"}, {"-"}, {""}};
  for (const auto& arguments : command_lines) {
    SCOPED_TRACE(arguments.front());
    expect_tool(arguments, 255, usage_text);
  }
  expect_files(folder.files(), {});
}

TEST_F(CommandLine, HelpShowsTheUsageAndReturnsOne) {
  expect_tool({"-h"}, 1, usage_text);
  expect_tool({"--help"}, 1, usage_text);
}

TEST_F(CommandLine, VersionShowsOneLineAndWinsOverHelpAndPacking) {
  expect_tool({"--version"}, 1, version_line);
  put_dag("net", dag_lines("net"));
  expect_tool({"--version", "-h", "-d", "in"}, 1, version_line);
  expect_tool({"-v", "-d", "in", "-h", "--version"}, 1, version_line);
  EXPECT_FALSE(folder.exists("morvane_gen.bin"));
}

TEST_F(CommandLine, HelpWinsOverPacking) {
  put_dag("net", dag_lines("net"));
  expect_tool({"-h", "-d", "in"}, 1, usage_text);
  EXPECT_FALSE(folder.exists("morvane_gen.bin"));
}

TEST_F(CommandLine, VerboseAloneInspectsTheDefaultPackage) {
  folder.write("morvane_gen.bin", package_header(0));
  expect_tool({"-v"}, 1, report_on_nothing);
  EXPECT_TRUE(folder.exists("parse"));
}

TEST_F(CommandLine, InspectionReturnsOneAlsoWhenThereIsNoPackage) {
  expect_tool({"-v"}, 1, "can't open file morvane_gen.bin\n");
  expect_tool({"--verbose", "-f", "net.bin"}, 1, "can't open file net.bin\n");
  EXPECT_FALSE(folder.exists("parse"));
}

TEST_F(CommandLine, AnInputFolderNamedDirpathCountsAsNotGiven) {
  folder.write("dirpath/net.dvi", "");
  folder.write("dirpath/net.h", dag_lines("net"));
  expect_tool({"-d", "dirpath"}, 255, usage_text);
  expect_tool({"-d", "dirpath", "-v"}, 1, "can't open file morvane_gen.bin\n");
  EXPECT_FALSE(folder.exists("morvane_gen.bin"));
}

TEST_F(CommandLine, TheSameInputFolderUnderAnotherPathIsPacked) {
  folder.write("dirpath/net.dvi", "");
  folder.write("dirpath/net.h", dag_lines("net"));
  expect_tool({"-d", "./dirpath"}, 0,
              "warning: fail to find HMB input info in ./dirpath/net.h\n"
              "warning: fail to find HMB output info in ./dirpath/net.h\n"
              "Save to file morvane_gen.bin with file size 168.\n"
              "\n");
}

TEST_F(CommandLine, EveryOptionHasAShortAndALongForm) {
  const std::vector<std::vector<std::string>> command_lines = {
      {"-d", "in", "-f", "net.bin", "-p", "out", "-v", "-c"},
      {"--dir", "in", "--filename", "net.bin", "--parsedir", "out", "--verbose", "--vproc"},
      {"--dir=in", "--filename=net.bin", "--parsedir=out", "--verb", "--vp"},
      {"-din", "-fnet.bin", "-pout", "-vc"},
      {"-cvdin", "-vcfnet.bin", "--pa", "out"},
  };
  for (const auto& arguments : command_lines) {
    SCOPED_TRACE(arguments.front());
    const scratch_folder other;
    other.make_folder("out");
    test::put_dag(other, "net", dag_lines("net") + "/* $gain */\n");
    expect_run(run_tool(arguments, other.path()), 0,
               no_ports + saved("316") + report_begin({{.dag_name = "net"}}) +
                   "vproc_id: 0 dag_name: net variable_num: 1 smb_num: 0\n"
                   "\n"
                   "var: gain\t boffset = 0\t bsize = 0\n"
                   "\n"
                   "\n" +
                   report_end("out"));
    EXPECT_TRUE(other.exists("out/parse/net.dvi"));
  }
}

TEST_F(CommandLine, ALaterOptionReplacesAnEarlierOne) {
  folder.write("right.bin", package_header(0));
  folder.make_folder("right");
  expect_tool({"-f", "wrong.bin", "-p", "wrong", "-v", "-v", "-f", "right.bin", "--parsedir",
               "right", "-d", "wrong", "-d", "dirpath"},
              1, report_begin({}) + report_end("right"));
}

TEST_F(CommandLine, WordsThatAreNoOptionsAreLeftAlone) {
  folder.write("net.bin", package_header(0));
  expect_tool({"first", "-f", "net.bin", "second", "-v", "third"}, 1, report_on_nothing);
}

TEST_F(CommandLine, ADoubleDashEndsTheOptions) {
  expect_tool({"-f", "net.bin", "--", "-v"}, 255, usage_text);
}

}  // namespace
}  // namespace morvane::test

// Command lines that lead to the usage text: unknown switches and names that are too long.
#include <gtest/gtest.h>

#include "end_to_end/compiler_output.h"
#include "end_to_end/expectations.h"
#include "end_to_end/package_records.h"
#include "end_to_end/usage_text.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

const std::string unknown_switch = "morvane_gen: unknown switch\n" + usage_text;

/// A path with this number of characters to a name in the current folder: "././././name".
std::string long_path(std::string_view name, std::size_t length) {
  std::string path;
  while (path.size() + 2 + name.size() <= length) {
    path += "./";
  }
  if (path.size() + name.size() < length) {
    path += '/';
  }
  return path.append(name);
}

TEST(RefusedCommandLine, AnUnknownShortSwitch) {
  const scratch_folder folder;
  const run_result run = run_tool({"-x"}, folder.path());
  expect_run(run, 255, unknown_switch);
  EXPECT_NE(run.diagnostics.find("invalid option -- 'x'"), std::string::npos);
}

TEST(RefusedCommandLine, AnUnknownLongSwitch) {
  const scratch_folder folder;
  const run_result run = run_tool({"--unknown"}, folder.path());
  expect_run(run, 255, unknown_switch);
  EXPECT_NE(run.diagnostics.find("unrecognized option '--unknown'"), std::string::npos);
}

TEST(RefusedCommandLine, AShortSwitchWithoutItsArgument) {
  for (const char* option : {"-f", "-d", "-p"}) {
    SCOPED_TRACE(option);
    const scratch_folder folder;
    const run_result run = run_tool({"-v", option}, folder.path());
    expect_run(run, 255, unknown_switch);
    EXPECT_NE(run.diagnostics.find("option requires an argument -- "), std::string::npos);
  }
}

TEST(RefusedCommandLine, ALongSwitchWithoutItsArgument) {
  for (const char* option : {"--filename", "--dir", "--parsedir"}) {
    SCOPED_TRACE(option);
    const scratch_folder folder;
    const run_result run = run_tool({"-v", option}, folder.path());
    expect_run(run, 255, unknown_switch);
    EXPECT_NE(run.diagnostics.find("requires an argument"), std::string::npos);
  }
}

TEST(RefusedCommandLine, ASwitchWithAnArgumentThatItDoesNotTake) {
  const scratch_folder folder;
  expect_run(run_tool({"--verbose=1"}, folder.path()), 255, unknown_switch);
}

TEST(RefusedCommandLine, AnAbbreviationOfTwoSwitches) {
  const scratch_folder folder;
  expect_run(run_tool({"--ver"}, folder.path()), 255, unknown_switch);
}

TEST(RefusedCommandLine, VersionHasNoShortForm) {
  const scratch_folder folder;
  expect_run(run_tool({"-V"}, folder.path()), 255, unknown_switch);
}

TEST(RefusedCommandLine, SwitchesBeforeTheUnknownOneAreNotActedOn) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net"));
  folder.write("net.bin", package_header(0));
  expect_run(run_tool({"--version", "-x"}, folder.path()), 255, unknown_switch);
  expect_run(run_tool({"-h", "-x"}, folder.path()), 255, unknown_switch);
  expect_run(run_tool({"-f", "net.bin", "-v", "-x"}, folder.path()), 255, unknown_switch);
  expect_run(run_tool({"-d", "in", "-x"}, folder.path()), 255, unknown_switch);
  EXPECT_FALSE(folder.exists("morvane_gen.bin"));
  EXPECT_FALSE(folder.exists("parse"));
}

TEST(RefusedCommandLine, SwitchesAfterTheUnknownOneAreNotLookedAt) {
  const scratch_folder folder;
  expect_run(run_tool({"-x", "-y", "-f", std::string(2049, 'f')}, folder.path()), 255,
             unknown_switch);
  expect_run(run_tool({"-xh", "--version"}, folder.path()), 255, unknown_switch);
}

TEST(RefusedCommandLine, APackageNameOf2049Characters) {
  const scratch_folder folder;
  folder.write("net.bin", package_header(0));
  for (const char* option : {"-f", "--filename"}) {
    expect_run(run_tool({"-v", option, long_path("net.bin", 2049)}, folder.path()), 255,
               "error: filename exceed 2048\n" + usage_text);
  }
}

TEST(RefusedCommandLine, AnInputFolderNameOf2049Characters) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net"));
  for (const char* option : {"-d", "--dir"}) {
    expect_run(run_tool({option, long_path("in", 2049)}, folder.path()), 255,
               "error: directory name exceed 2048\n" + usage_text);
  }
  EXPECT_FALSE(folder.exists("morvane_gen.bin"));
}

TEST(RefusedCommandLine, AParseFolderNameOf2049Characters) {
  const scratch_folder folder;
  folder.write("morvane_gen.bin", package_header(0));
  for (const char* option : {"-p", "--parsedir"}) {
    expect_run(run_tool({"-v", option, long_path(".", 2049)}, folder.path()), 255,
               "error: parse folder name exceed 2048\n" + usage_text);
  }
  EXPECT_FALSE(folder.exists("parse"));
}

TEST(RefusedCommandLine, OnlyTheFirstNameThatIsTooLongIsReported) {
  const scratch_folder folder;
  const std::string name(2049, 'n');
  expect_run(run_tool({"-p", name, "-x", "-f", name, "--version"}, folder.path()), 255,
             "error: parse folder name exceed 2048\n" + usage_text);
}

TEST(LongestNames, Of2048CharactersAreTaken) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net", 5), "image");
  const std::string input = long_path("in", 2048);
  const std::string package = long_path("net.bin", 2048);
  const std::string parsedir = long_path(".", 2048);
  ASSERT_EQ(input.size(), 2048U);
  ASSERT_EQ(package.size(), 2048U);
  ASSERT_EQ(parsedir.size(), 2048U);
  expect_run(run_tool({"-d", input, "-f", package, "-p", parsedir, "-v"}, folder.path()), 0,
             "warning: fail to find HMB input info in " + input + "/_net.h\n" +
                 "warning: fail to find HMB output info in " + input + "/_net.h\n" +
                 "Save to file " + package + " with file size 173.\n" +
                 "\n"
                 "version 2.1.6 ( HASH b3b3814 ) dvi_num: 1\n"
                 "\n"
                 "dvi_id: 0\t dvi_img_vaddr: 0\t dvi_img_size: 5\t dvi_dag_vaddr: 0\t input_num: 0"
                 "\t output_num: 0\t dvi_pkg_size: 5\t dvi_ppv: 0\t vproc_id: 0\t dag_name: net\n"
                 "\n"
                 "dvi_id: 0 dag_name: net input_num: 0 output_num: 0\n"
                 "\n"
                 ".dvi files are parsed to folder " +
                 parsedir + "/parse\n\n");
  expect_bytes(
      folder.read("net.bin"),
      package_header(1) + dvi_record({.img_size = 5, .pkg_size = 5, .dag_name = "net"}) + "image");
  EXPECT_EQ(folder.read("parse/net.dvi"), "image");
}

}  // namespace
}  // namespace morvane::test

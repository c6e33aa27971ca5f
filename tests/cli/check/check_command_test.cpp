// morvane check, as a user starts it.
#include <gtest/gtest.h>

#include "cli/outcome.h"
#include "cli/sound_package.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

TEST(CheckCommand, TellsThatAPackageIsSound) {
  const scratch_folder folder;
  folder.write("net.bin", sound_package());
  folder.write("vproc.bin", sound_package_with_vproc());
  expect_outcome(run_morvane({"check", "net.bin", "vproc.bin"}, folder.path()), 0,
                 "net.bin: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\nvproc.bin: "
                 "sound, 2 DVIs, 4 ports, with vproc records, 5064 bytes\n");
}

TEST(CheckCommand, CountsOneOfAThingInTheSingular) {
  const scratch_folder folder;
  folder.write("net.bin",
               header(1) + bytes(sound_dvi(0, "net", 0, 1)) + bytes(port("p", "")) + image());
  expect_outcome(run_morvane({"check", "net.bin"}, folder.path()), 0,
                 "net.bin: sound, 1 DVI, 1 port, without vproc records, 1312 bytes\n");
}

TEST(CheckCommand, ShowsWarningsOfASoundPackage) {
  const scratch_folder folder;
  folder.write("net.bin", header(1) + bytes(sound_dvi(0, "net", 0, 0)) + image());
  const std::string warning = "net.bin:0x1c: warning: DVI 0 has no ports [dvi-without-ports]\n";
  const std::string verdict = "net.bin: sound, 1 DVI, 0 ports, without vproc records, 232 bytes\n";
  expect_outcome(run_morvane({"check", "net.bin"}, folder.path()), 0, warning + verdict);
  expect_outcome(run_morvane({"check", "--werror", "net.bin"}, folder.path()), 1, warning);
  expect_outcome(run_morvane({"check", "--werror", "-q", "net.bin"}, folder.path()), 1, warning);
  expect_outcome(run_morvane({"check", "--quiet", "net.bin"}, folder.path()), 0, "");
}

TEST(CheckCommand, GoesOnAfterAPackageThatCannotBeRead) {
  const scratch_folder folder;
  folder.write("net.bin", sound_package());
  expect_outcome(run_morvane({"check", "missing.bin", ".", "net.bin"}, folder.path()), 2,
                 "net.bin: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n",
                 "morvane: missing.bin: No such file or directory\nmorvane: .: Is a directory\n");
}

TEST(CheckCommand, EscapesTheFileName) {
  const scratch_folder folder;
  folder.write("\x1B[2J\xFF.bin", sound_package());
  expect_outcome(run_morvane({"check", "\x1B[2J\xFF.bin"}, folder.path()), 0,
                 "\\x1b[2J\\xff.bin: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n");
}

TEST(CheckCommand, WritesVerdictsAsJson) {
  const scratch_folder folder;
  folder.write("net.bin", sound_package());
  folder.write("\xFF\".bin", header(1) + bytes(sound_dvi(0, "a/b", 0, 0)) + image());
  expect_outcome(
      run_morvane({"check", "--format", "json", "net.bin", "\xFF\".bin", "none"}, folder.path()), 2,
      "{\"packages\": [\n"
      "  {\"file\": \"net.bin\", \"findings\": [], \"sound\": true, \"dvis\": 2, \"ports\": 4, "
      "\"vproc\": false, \"bytes\": 4772},\n"
      "  {\"file\": \"\\ufffd\\\".bin\", \"findings\": [\n"
      "    {\"severity\": \"error\", \"code\": \"unsafe-dag-name\", \"file\": "
      "\"\\ufffd\\\".bin\", \"offset\": 40, \"text\": \"DVI 0: dag_name \\\"a/b\\\" holds a "
      "slash\"},\n"
      "    {\"severity\": \"warning\", \"code\": \"dvi-without-ports\", \"file\": "
      "\"\\ufffd\\\".bin\", \"offset\": 28, \"text\": \"DVI 0 has no ports\"}], \"sound\": "
      "false, "
      "\"dvis\": 1, \"ports\": 0, \"vproc\": false, \"bytes\": 232},\n"
      "  {\"file\": \"none\", \"failure\": \"No such file or directory\"}]}\n",
      "morvane: none: No such file or directory\n");
}

TEST(CheckCommand, WritesFindingsAsSarifWithTheirPlaces) {
  const scratch_folder folder;
  folder.write("a b.bin",
               header(1) + bytes(sound_dvi(0, "a/b", 0, 1)) + bytes(port("p", "")) + image());
  const run_result run = run_morvane({"check", "--format=sarif", "a b.bin", "none"}, folder.path());
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.output.find(
                "\"results\": [\n"
                "    {\"ruleId\": \"unsafe-dag-name\", \"ruleIndex\": 16, \"level\": \"error\", "
                "\"message\": {\"text\": \"DVI 0: dag_name \\\"a/b\\\" holds a slash\"}, "
                "\"locations\": [\n"
                "      {\"physicalLocation\": {\"artifactLocation\": {\"uri\": \"a%20b.bin\"}, "
                "\"region\": {\"byteOffset\": 40}}}]}], \"invocations\": [\n"
                "    {\"executionSuccessful\": false, \"toolExecutionNotifications\": [\n"
                "      {\"level\": \"error\", \"message\": {\"text\": \"none: No such file or "
                "directory\"}}]}]}]}\n"),
            std::string::npos)
      << run.output;
}

TEST(CheckCommand, ReadsPackagesFromPipes) {
  const scratch_folder folder;
  folder.write("net.bin", sound_package());
  const std::string command = "cat net.bin | \"$@\"";
  std::vector<std::string> words = {"bash", "-c", command, "bash"};
  for (const std::string& word : run_prefix()) {
    words.push_back(word);
  }
  words.insert(words.end(), {morvane_path(), "check", "/dev/stdin"});
  expect_outcome(run_program(words, folder.path()), 0,
                 "/dev/stdin: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n");
}

TEST(CheckCommand, NeedsOnlyTheRecordsOfAHugePackage) {
  const scratch_folder folder;
  dvi_desc huge = sound_dvi(0, "net", 0, 1);
  huge.dvi_img_size = 0x7FFFFFFF;
  huge.dvi_pkg_size = huge.dvi_img_size + 1080;
  const std::string records = header(1) + bytes(huge) + bytes(port("p", ""));
  folder.write("net.bin", records);
  std::filesystem::resize_file(folder.path("net.bin"), records.size() + huge.dvi_img_size);
  expect_outcome(run_morvane({"check", "net.bin"}, folder.path()), 0,
                 "net.bin: sound, 1 DVI, 1 port, without vproc records, 2147484895 bytes\n");
}

}  // namespace
}  // namespace morvane::test

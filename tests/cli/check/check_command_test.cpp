// morvane check, as a user starts it.
#include <gtest/gtest.h>

#include "cli/outcome.h"
#include "harness/packages.h"

namespace morvane::test {
namespace {

using CheckCommand = morvane_test;

TEST_F(CheckCommand, TellsThatAPackageIsSound) {
  folder.write("net.bin", sound_package());
  folder.write("vproc.bin", sound_package_with_vproc());
  expect_morvane({"check", "net.bin", "vproc.bin"}, 0,
                 "net.bin: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\nvproc.bin: "
                 "sound, 2 DVIs, 4 ports, with vproc records, 5064 bytes\n");
}

TEST_F(CheckCommand, ShowsWarningsOfASoundPackage) {
  folder.write("net.bin", header(1) + bytes(sound_dvi(0, "net", 0, 0)) + image());
  const std::string warning =
      "net.bin:0x1c: warning: DVI 0 (net) has no ports [dvi-without-ports]\n";
  const std::string verdict = "net.bin: sound, 1 DVI, 0 ports, without vproc records, 232 bytes\n";
  expect_morvane({"check", "net.bin"}, 0, warning + verdict);
  expect_morvane({"check", "--werror", "net.bin"}, 1, warning);
  expect_morvane({"check", "--werror", "-q", "net.bin"}, 1, warning);
  expect_morvane({"check", "--quiet", "net.bin"}, 0, "");
}

TEST_F(CheckCommand, GoesOnAfterAPackageThatCannotBeRead) {
  folder.write("net.bin", sound_package());
  expect_morvane({"check", "missing.bin", ".", "net.bin"}, 2,
                 "net.bin: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n",
                 "morvane: missing.bin: No such file or directory\nmorvane: .: Is a directory\n");
}

TEST_F(CheckCommand, WritesVerdictsAsJson) {
  folder.write("net.bin", sound_package());
  folder.write("\xFF\".bin", header(1) + bytes(sound_dvi(0, "a/b", 0, 0)) + image());
  expect_morvane(
      {"check", "--format", "json", "net.bin", "\xFF\".bin", "none"}, 2,
      "{\"packages\": [\n"
      "  {\"file\": \"net.bin\", \"findings\": [], \"sound\": true, \"dvis\": 2, \"ports\": 4, "
      "\"vproc\": false, \"bytes\": 4772},\n"
      "  {\"file\": \"\\ufffd\\\".bin\", \"findings\": [\n"
      "    {\"severity\": \"error\", \"code\": \"unsafe-dag-name\", \"file\": "
      "\"\\ufffd\\\".bin\", \"offset\": 40, \"text\": \"DVI 0: dag_name \\\"a/b\\\" holds a "
      "slash\"},\n"
      "    {\"severity\": \"warning\", \"code\": \"dvi-without-ports\", \"file\": "
      "\"\\ufffd\\\".bin\", \"offset\": 28, \"text\": \"DVI 0 (a/b) has no ports\"}], \"sound\": "
      "false, "
      "\"dvis\": 1, \"ports\": 0, \"vproc\": false, \"bytes\": 232},\n"
      "  {\"file\": \"none\", \"failure\": \"No such file or directory\"}]}\n",
      "morvane: none: No such file or directory\n");
}

TEST_F(CheckCommand, WritesFindingsAsSarifWithTheirPlaces) {
  folder.write("a b.bin",
               header(1) + bytes(sound_dvi(0, "a/b", 0, 1)) + bytes(port("p", "")) + image());
  const run_result run = morvane({"check", "--format=sarif", "a b.bin", "none"});
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

TEST_F(CheckCommand, ReadsPackagesFromPipes) {
  folder.write("net.bin", sound_package());
  expect_outcome(run_shell("cat net.bin | \"$@\" check /dev/stdin", folder.path()), 0,
                 "/dev/stdin: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n");
}

TEST_F(CheckCommand, NeedsOnlyTheRecordsOfAHugePackage) {
  dvi_desc huge = sound_dvi(0, "net", 0, 1);
  huge.dvi_img_size = 0x7FFFFFFF;
  huge.dvi_pkg_size = huge.dvi_img_size + 1080;
  const std::string records = header(1) + bytes(huge) + bytes(port("p", ""));
  folder.write("net.bin", records);
  std::filesystem::resize_file(folder.path("net.bin"), records.size() + huge.dvi_img_size);
  expect_morvane({"check", "net.bin"}, 0,
                 "net.bin: sound, 1 DVI, 1 port, without vproc records, 2147484895 bytes\n");
}

TEST_F(CheckCommand, TakesDagNamesThatAreOddButSafe) {
  for (const char* name : {"...  ", "a b c", ".abcd", "a\\b:c", "\xFF\x80\xC3\xA4", "-rf *"}) {
    folder.write("net.bin", sound_package().replace(0x28, std::string_view(name).size(), name));
    EXPECT_EQ(morvane({"check", "--werror", "net.bin"}).status, 0) << name;
  }
}

TEST_F(CheckCommand, TakesTheLowByteOfAPositionForItsVprocId) {
  std::string package = header(257);
  std::string blocks;
  for (unsigned i = 0; i < 257; ++i) {
    package += bytes(sound_dvi(static_cast<std::uint8_t>(i), std::to_string(i), 0, 1));
    blocks += bytes(sound_port(std::to_string(i), 0)) + image();
  }
  folder.write("net.bin", package + blocks);
  expect_morvane({"check", "--quiet", "--werror", "net.bin"}, 0, "");
}

}  // namespace
}  // namespace morvane::test

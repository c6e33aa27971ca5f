// morvane check, as a user starts it.
#include <gtest/gtest.h>

#include "companion/sound_package.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

void expect_morvane(const run_result& run, int status, std::string_view output,
                    std::string_view diagnostics = "") {
  EXPECT_EQ(run.status, status);
  EXPECT_EQ(run.output, output);
  EXPECT_EQ(run.diagnostics, diagnostics);
}

TEST(CheckCommand, TellsThatAPackageIsSound) {
  const scratch_folder folder;
  folder.write("net.bin", sound_package());
  folder.write("vproc.bin", sound_package_with_vproc());
  expect_morvane(run_morvane({"check", "net.bin", "vproc.bin"}, folder.path()), 0,
                 "net.bin: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n"
                 "vproc.bin: sound, 2 DVIs, 4 ports, with vproc records, 5064 bytes\n");
}

TEST(CheckCommand, CountsOneOfAThingInTheSingular) {
  const scratch_folder folder;
  folder.write("net.bin",
               header(1) + bytes(sound_dvi(0, "net", 0, 1)) + bytes(port("p", "")) + image());
  expect_morvane(run_morvane({"check", "net.bin"}, folder.path()), 0,
                 "net.bin: sound, 1 DVI, 1 port, without vproc records, 1312 bytes\n");
}

TEST(CheckCommand, TellsWhereAndWhyAPackageIsNotSound) {
  const scratch_folder folder;
  folder.write("net.bin", sound_package() + "x");
  expect_morvane(run_morvane({"check", "net.bin"}, folder.path()), 1,
                 "net.bin:0x12a4: error: the vproc table is cut: it says 24 bytes, and there are 1 "
                 "[vproc-table-cut]\n");
}

TEST(CheckCommand, ShowsWarningsOfASoundPackage) {
  const scratch_folder folder;
  folder.write("net.bin", header(1) + bytes(sound_dvi(0, "net", 0, 0)) + image());
  const std::string warning = "net.bin:0x1c: warning: DVI 0 has no ports [dvi-without-ports]\n";
  const std::string verdict = "net.bin: sound, 1 DVI, 0 ports, without vproc records, 232 bytes\n";
  expect_morvane(run_morvane({"check", "net.bin"}, folder.path()), 0, warning + verdict);
  expect_morvane(run_morvane({"check", "--werror", "net.bin"}, folder.path()), 1, warning);
  expect_morvane(run_morvane({"check", "--quiet", "net.bin"}, folder.path()), 0, "");
}

TEST(CheckCommand, GoesOnAfterAPackageThatCannotBeRead) {
  const scratch_folder folder;
  folder.write("net.bin", sound_package());
  expect_morvane(run_morvane({"check", "missing.bin", ".", "net.bin"}, folder.path()), 2,
                 "net.bin: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n",
                 "morvane: missing.bin: No such file or directory\n"
                 "morvane: .: Is a directory\n");
}

TEST(CheckCommand, DoesNotTakeAnEmptyFileForSound) {
  const scratch_folder folder;
  folder.write("net.bin", "");
  expect_morvane(run_morvane({"check", "net.bin"}, folder.path()), 1,
                 "net.bin:0x0: error: the header is cut: it says 12 bytes, and there are 0 "
                 "[header-cut]\n");
}

TEST(CheckCommand, EscapesTheFileName) {
  const scratch_folder folder;
  folder.write("\x1B[2J\xFF.bin", sound_package());
  expect_morvane(run_morvane({"check", "\x1B[2J\xFF.bin"}, folder.path()), 0,
                 "\\x1b[2J\\xff.bin: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n");
}

}  // namespace
}  // namespace morvane::test

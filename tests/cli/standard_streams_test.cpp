// "-" as the name of a file: standard input or standard output.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "cli/outcome.h"
#include "cli/pack/packed_folder.h"
#include "harness/packages.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

constexpr const char* image_header =
    "#define net_DAG_NAME \"net\"\n"
    "#define net_image_start 4096\n"
    "#define net_image_size 4\n"
    "#define net_dagbin_start 4096\n";

/// A folder "out" that can be packed, and its package "net.bin".
struct packed_scratch {
  scratch_folder folder{};

  packed_scratch() {
    folder.write("out/net.dvi", "AAAA");
    folder.write("out/_net.h", image_header);
    EXPECT_TRUE(pack_folder(folder.path("out"), false, folder.path("net.bin")));
  }
};

TEST(StandardInput, IsAPackageForEveryCommandThatReadsOne) {
  const scratch_folder folder;
  folder.write("net.bin", sound_package());
  const std::string pipe = "cat net.bin | \"$@\" ";
  expect_outcome(run_shell(pipe + "check -", folder.path()), 0,
                 "-: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n");
  expect_outcome(run_shell(pipe + "diff - net.bin", folder.path()), 0, "");
  expect_outcome(run_shell(pipe + "diff net.bin -", folder.path()), 0, "");
  expect_outcome(run_shell(pipe + "extract - -o - first", folder.path()), 0, image());
  expect_outcome(run_shell(pipe + "extract --list -- -", folder.path()), 0, "first\nsecond\n");
  for (const char* command :
       {"show - first", "show --json -", "report -", "report net.bin --against -"}) {
    const run_result run = run_shell(pipe + command, folder.path());
    EXPECT_EQ(run.status, 0) << command;
    EXPECT_NE(run.output.find("first"), std::string::npos) << command;
  }
}

TEST(StandardInput, MayBeAFile) {
  const scratch_folder folder;
  folder.write("net.bin", sound_package());
  expect_outcome(run_shell("\"$@\" check - <net.bin", folder.path()), 0,
                 "-: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n");
  expect_outcome(run_shell("\"$@\" report - -o net.bin <net.bin", folder.path()), 2, "",
                 "morvane: net.bin: the page must not replace a package that it is made from\n");
}

TEST(StandardInput, HasANameOnThePage) {
  const scratch_folder folder;
  folder.write("net.bin", sound_package());
  const run_result run = run_shell("\"$@\" report - <net.bin", folder.path());
  EXPECT_NE(run.output.find("<title>standard input: package report</title>"), std::string::npos);
}

TEST(StandardInput, TellsWhyItCannotBeRead) {
  const scratch_folder folder;
  expect_outcome(run_shell("\"$@\" check - <&-", folder.path()), 2, "",
                 "morvane: -: Bad file descriptor\n");
  expect_outcome(run_shell("\"$@\" check - <.", folder.path()), 2, "",
                 "morvane: -: Is a directory\n");
}

TEST(StandardInput, IsReadOnlyOnce) {
  using command = std::array<std::vector<std::string>, 2>;
  for (const auto& [words, option] :
       {command{{{"check", "-", "net.bin", "-"}, {"PACKAGE"}}},
        command{{{"diff", "-", "-"}, {"NEW"}}},
        command{{{"report", "-", "--against", "-"}, {"--against"}}}}) {
    expect_outcome(run_morvane(words, "."), 2, "",
                   "morvane: " + option.front() +
                       ": standard input can be read only once; try morvane " + words.front() +
                       " --help\n");
  }
}

TEST(StandardInput, HoldsNoFolder) {
  expect_outcome(run_morvane({"lint", "-"}, "."), 2, "",
                 "morvane: FOLDER: standard input holds no folder; try morvane lint --help\n");
  expect_outcome(run_morvane({"pack", "-", "-o", "net.bin"}, "."), 2, "",
                 "morvane: FOLDER: standard input holds no folder; try morvane pack --help\n");
}

TEST(StandardOutput, TakesAPackage) {
  const packed_scratch packed;
  expect_outcome(run_shell("\"$@\" pack out -o - | cat", packed.folder.path()), 0,
                 packed.folder.read("net.bin"),
                 "standard output: packed, 1 DVI, 0 ports, without vproc records, 172 bytes\n");
  expect_outcome(run_shell("\"$@\" pack -q out -o -", packed.folder.path()), 0,
                 packed.folder.read("net.bin"), "");
}

TEST(StandardOutput, TakesAPackageThatNobodyIsToldOf) {
  const packed_scratch packed;
  expect_outcome(run_shell("\"$@\" pack out -o - 2>&-", packed.folder.path()), 0,
                 packed.folder.read("net.bin"), "");
}

TEST(StandardOutput, TakesNoByteOfAPackageThatIsNotRight) {
  const packed_scratch packed;
  packed.folder.write("out/net.dvi", "AAA");
  const run_result run = run_morvane({"pack", "out", "-o", "-"}, packed.folder.path());
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output, "");
  EXPECT_TRUE(run.diagnostics.starts_with("out/_net.h:3:24: error: ")) << run.diagnostics;
  EXPECT_TRUE(run.diagnostics.ends_with("nothing is packed\n")) << run.diagnostics;
}

TEST(StandardOutput, MustTakeThePackage) {
  const packed_scratch packed;
  expect_outcome(run_shell("\"$@\" pack out -o - >/dev/full", packed.folder.path()), 2, "",
                 "morvane: standard output: No space left on device\n");
}

TEST(StandardOutput, TakesADependencyFile) {
  const packed_scratch packed;
  expect_outcome(
      run_morvane({"pack", "out", "-o", "new.bin", "--depfile", "-"}, packed.folder.path()), 0,
      "new.bin: \\\n"
      "  out/net.dvi \\\n"
      "  out/_net.h\n"
      "out/net.dvi:\n"
      "out/_net.h:\n",
      "new.bin: packed, 1 DVI, 0 ports, without vproc records, 172 bytes\n");
  expect_outcome(
      run_shell("\"$@\" pack out -o full.bin --depfile - >/dev/full", packed.folder.path()), 2, "",
      "morvane: standard output: No space left on device\n");
  EXPECT_FALSE(packed.folder.exists("full.bin"));
}

TEST(StandardOutput, HasNoNameForADependencyFile) {
  const packed_scratch packed;
  for (const char* depfile : {"-", "net.d"}) {
    expect_outcome(
        run_morvane({"pack", "out", "-o", "-", "--depfile", depfile}, packed.folder.path()), 2, "",
        "morvane: standard output: a package without a name has no rule in a dependency file\n");
  }
}

}  // namespace
}  // namespace morvane::test

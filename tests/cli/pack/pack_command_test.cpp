// morvane pack: the same bytes as morvane_gen, or the package as it was.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <map>

#include "cli/outcome.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* net_header =
    "#define net_DAG_NAME net\n"
    "#define net_image_size 5\n"
    "/* net HMB_input data */\n"
    "#define net_data_W 7\n"
    "/* net HMB_output mask */\n";

class Pack : public testing::Test {
 protected:
  void SetUp() override {
    folder.write("in/net.dvi", "image");
    folder.write("in/net.h", net_header);
  }

  [[nodiscard]] run_result pack(std::vector<std::string> options = {}) const {
    std::vector<std::string> arguments = {"pack", "in", "-o", "net.bin"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return run_morvane(arguments, folder.path());
  }

  /// What morvane_gen writes for the folder.
  [[nodiscard]] std::string expected(const std::vector<std::string>& options = {}) const {
    const scratch_folder other;
    std::vector<std::string> arguments = {"-d", folder.path("in"), "-f", "net.bin"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    EXPECT_EQ(run_tool(arguments, other.path()).status, 0);
    return other.read("net.bin");
  }

  /// Checks a run that fails: its status, its messages, and that the older package is unchanged.
  void expect_refused(const std::vector<std::string>& options, int status,
                      const std::string& output, const std::string& diagnostics) {
    folder.write("net.bin", "older");
    const auto before = folder.files();
    const run_result run = pack(options);
    EXPECT_EQ(run.status, status);
    EXPECT_EQ(run.output, output);
    EXPECT_EQ(run.diagnostics, diagnostics);
    EXPECT_EQ(folder.files(), before);
  }

  scratch_folder folder;
};

TEST_F(Pack, WritesThePackageThatTheToolWrites) {
  const run_result run = pack();
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "net.bin: packed, 1 DVI, 2 ports, without vproc records, 2333 bytes\n");
  EXPECT_EQ(run.diagnostics, "");
  EXPECT_TRUE(folder.read("net.bin") == expected());
}

TEST_F(Pack, WritesVprocRecordsOnRequest) {
  folder.write("in/net.h", std::string(net_header) + "/* $gain */\n#define gain_bsize 8\n");
  const run_result run = pack({"--vproc"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "net.bin: packed, 1 DVI, 2 ports, with vproc records, 2481 bytes\n");
  EXPECT_TRUE(folder.read("net.bin") == expected({"-c"}));
}

TEST_F(Pack, WritesALargeImage) {
  constexpr std::size_t image_size = (20U << 20U) + 7;
  std::string image(image_size, '\0');
  for (std::size_t i = 0; i < image_size; ++i) {
    image[i] = static_cast<char>(i % 251);
  }
  folder.write("in/net.dvi", image);
  folder.write("in/net.h", "#define net_DAG_NAME net\n#define net_image_size 20971527\n");
  EXPECT_EQ(pack({"--no-sync", "--quiet"}).status, 0);
  EXPECT_TRUE(folder.read("net.bin") == expected());
}

TEST_F(Pack, ReplacesAnOlderPackageAndLeavesNothingElse) {
  folder.write("net.bin", "older");
  EXPECT_EQ(pack({"--no-sync"}).status, 0);
  EXPECT_TRUE(folder.read("net.bin") == expected());
  EXPECT_EQ(folder.files().size(), 3U);
}

TEST_F(Pack, KeepsThePermissionsOfAnOlderPackage) {
  folder.write("net.bin", "older");
  fs::permissions(folder.path("net.bin"), fs::perms{0640});
  EXPECT_EQ(pack().status, 0);
  EXPECT_EQ(fs::status(folder.path("net.bin")).permissions(), fs::perms{0640});
}

TEST_F(Pack, GivesANewPackageThePermissionsThatTheUmaskLeaves) {
  const mode_t old_mask = ::umask(027);
  EXPECT_EQ(pack().status, 0);
  ::umask(old_mask);
  EXPECT_EQ(fs::status(folder.path("net.bin")).permissions(), fs::perms{0640});
}

TEST_F(Pack, ReplacesTheFileThatALinkLeadsTo) {
  folder.write("elsewhere/net.bin", "older");
  fs::create_symlink("elsewhere/net.bin", folder.path("net.bin"));
  EXPECT_EQ(pack().status, 0);
  EXPECT_TRUE(fs::is_symlink(folder.path("net.bin")));
  EXPECT_TRUE(folder.read("elsewhere/net.bin") == expected());
}

TEST_F(Pack, LeavesTheOtherNamesOfAnOlderPackageAlone) {
  folder.write("net.bin", "older");
  fs::create_hard_link(folder.path("net.bin"), folder.path("kept.bin"));
  EXPECT_EQ(pack().status, 0);
  EXPECT_EQ(folder.read("kept.bin"), "older");
}

TEST_F(Pack, QuietPrintsNothingOfASuccess) {
  const run_result run = pack({"--quiet", "--vproc"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output + run.diagnostics, "");
}

constexpr const char* outside =
    "in/net.h:6:26: warning: the DAG binary is at 9, outside the image, which has 5 bytes from 0 "
    "on [dagbin-outside-image]\n";

TEST_F(Pack, ShowsWarningsAndGoesOn) {
  folder.write("in/net.h", std::string(net_header) + "#define net_dagbin_start 9\n");
  const run_result run = pack();
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, std::string(outside) +
                            "net.bin: packed, 1 DVI, 2 ports, without vproc records, 2333 bytes\n");
  EXPECT_EQ(run.diagnostics, "");
  EXPECT_EQ(pack({"--quiet"}).output, "");
}

TEST_F(Pack, TreatsWarningsAsErrorsOnRequest) {
  folder.write("in/net.h", std::string(net_header) + "#define net_dagbin_start 9\n");
  const std::string reason = "morvane: in: 0 errors, 1 warning: nothing is packed\n";
  expect_refused({"--werror"}, 1, outside, reason);
  expect_refused({"--werror", "--quiet"}, 1, outside, reason);
}

TEST_F(Pack, RefusesAFolderWithoutImages) {
  fs::remove(folder.path("in/net.dvi"));
  expect_refused({}, 1,
                 "in:1:1: error: no file with the extension .dvi can be packed [no-images]\n",
                 "morvane: in: 1 error, 0 warnings: nothing is packed\n");
}

TEST_F(Pack, RefusesAMissingFolder) {
  fs::remove_all(folder.path("in"));
  expect_refused({}, 2, "", "morvane: in: No such file or directory\n");
}

TEST_F(Pack, RefusesAMissingHeader) {
  fs::remove(folder.path("in/net.h"));
  expect_refused({}, 1,
                 "in/net.dvi:1:1: error: the header net.h is missing: nothing can be packed "
                 "[unpaired-image]\n",
                 "morvane: in: 1 error, 0 warnings: nothing is packed\n");
}

TEST_F(Pack, RefusesAnInputThatIsNoFile) {
  fs::remove(folder.path("in/net.h"));
  folder.make_folder("in/net.h");
  expect_refused({}, 2,
                 "in/net.h:1:1: error: the file cannot be read: Is a directory, so the DAG gets no "
                 "name and no image [unreadable-file]\n",
                 "morvane: in: 1 error, 0 warnings: nothing is packed\n");
}

TEST_F(Pack, RefusesAShortImage) {
  folder.write("in/net.dvi", "imag");
  expect_refused({}, 1,
                 "in/net.h:2:24: error: the image has 4 bytes, but the header says 5: nothing can "
                 "be packed [image-too-short]\n",
                 "morvane: in: 1 error, 0 warnings: nothing is packed\n");
}

TEST_F(Pack, RefusesAFolderWhoseCountsDisagree) {
  folder.write("in/net.h", std::string("/* net HMB_input early */\n") + net_header);
  expect_refused({}, 1,
                 "in/net.h:1:18: error: input early is packed, but not counted: it must "
                 "come after line 2, which names the DAG [miscounted-port]\n",
                 "morvane: in: 1 error, 0 warnings: nothing is packed\n");
}

TEST_F(Pack, RefusesToReplaceAnInput) {
  const auto before = folder.files();
  for (const std::string package : {"in/net.dvi", "in/net.h"}) {
    const run_result run = run_morvane({"pack", "in", "-o", package}, folder.path());
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.diagnostics, "morvane: " + package + ": is one of the files to pack\n");
  }
  EXPECT_EQ(folder.files(), before);
}

TEST_F(Pack, RefusesADependencyFileThatIsAnInputOrThePackage) {
  folder.write("net.bin", "older");
  std::filesystem::create_symlink("in/net.h", folder.path("link"));
  std::filesystem::create_symlink("net.bin", folder.path("package"));
  const auto before = folder.files();
  for (const std::string depfile : {"in/net.dvi", "in/net.h", "link"}) {
    const run_result run =
        run_morvane({"pack", "in", "-o", "net.bin", "--depfile", depfile}, folder.path());
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.diagnostics, "morvane: " + depfile + ": is one of the files to pack\n");
  }
  for (const auto& [package, depfile] : std::map<std::string, std::string>{
           {"net.bin", "package"}, {"new.bin", "./new.bin"}, {"./net.bin", "net.bin"}}) {
    const run_result run =
        run_morvane({"pack", "in", "-o", package, "--depfile", depfile}, folder.path());
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.diagnostics,
              "morvane: " + depfile + ": the dependency file cannot be the package\n");
  }
  EXPECT_EQ(folder.files(), before);
}

TEST_F(Pack, RefusesADependencyFileThatWouldBeThePackageUnderAnotherName) {
  folder.make_folder("out");
  fs::create_directory_symlink("out", folder.path("link"));
  fs::create_symlink("out/new.bin", folder.path("dangling"));
  const auto before = folder.files();
  for (const auto& depfile : {folder.path("out/new.bin"), std::string("link/new.bin"),
                              std::string("in/../out/new.bin"), std::string("dangling")}) {
    const run_result run =
        run_morvane({"pack", "in", "-o", "out/new.bin", "--depfile", depfile}, folder.path());
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.diagnostics,
              "morvane: " + depfile + ": the dependency file cannot be the package\n");
  }
  EXPECT_EQ(folder.files(), before);
  EXPECT_EQ(run_morvane({"pack", "in", "-o", "new.bin", "--depfile", "out/new.bin"}, folder.path())
                .status,
            0);
}

TEST_F(Pack, RefusesOutputsThatTheNextRunWouldRead) {
  fs::create_directory_symlink("in", folder.path("link"));
  const auto before = folder.files();
  for (const std::string output :
       {"in/x.dvi", "in/x.DVI", "link/x.dvi", "in/_net.h", "in/../in/.dvi"}) {
    for (const std::vector<std::string>& options :
         {std::vector<std::string>{"-o", output},
          std::vector<std::string>{"-o", "net.bin", "--depfile", output}}) {
      std::vector<std::string> arguments = {"pack", "in"};
      arguments.insert(arguments.end(), options.begin(), options.end());
      const run_result run = run_morvane(arguments, folder.path());
      EXPECT_EQ(run.status, 2);
      EXPECT_EQ(run.diagnostics, "morvane: " + output +
                                     ": with this name in this folder, the next run would pack the "
                                     "file itself or read it as a header\n");
    }
  }
  EXPECT_EQ(folder.files(), before);
}

TEST_F(Pack, WritesOtherOutputsIntoTheInputFolder) {
  for (const std::string output : {"in/net.bin", "in/other.h", "in/dvi", "x.dvi", "_net.h"}) {
    EXPECT_EQ(
        run_morvane({"pack", "in", "-q", "-o", output, "--depfile", output + ".d"}, folder.path())
            .status,
        0);
    EXPECT_TRUE(folder.read(output) == expected()) << output;
  }
}

TEST_F(Pack, WritesAPackageWithALongName) {
  const std::string name(255, 'n');
  EXPECT_EQ(run_morvane({"pack", "in", "-q", "-o", name}, folder.path()).status, 0);
  EXPECT_TRUE(folder.read(name) == expected());
}

TEST_F(Pack, RefusesToReplaceWhatIsNoFile) {
  folder.make_folder("net.bin");
  const run_result run = pack();
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.diagnostics, "morvane: net.bin: Is a directory\n");
  EXPECT_EQ(run_morvane({"pack", "in", "-o", "/dev/full"}, folder.path()).diagnostics,
            "morvane: /dev/full: it is no regular file\n");
}

TEST_F(Pack, RefusesAFolderThatDoesNotExistForThePackage) {
  const run_result run = run_morvane({"pack", "in", "-o", "missing/net.bin"}, folder.path());
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.diagnostics, "morvane: missing/net.bin: No such file or directory\n");
}

TEST_F(Pack, TellsThatStandardOutputIsFullAfterThePackageIsThere) {
  std::vector<std::string> words = {"sh", "-c", "exec \"$@\" >/dev/full", "sh"};
  const auto command = morvane_words({"pack", "in", "-o", "net.bin"});
  words.insert(words.end(), command.begin(), command.end());
  const run_result run = run_program(words, folder.path());
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.diagnostics,
            "morvane: net.bin: is in place, but cannot be told of: standard output: No space left "
            "on device\n");
  EXPECT_TRUE(folder.read("net.bin") == expected());
}

TEST_F(Pack, WritesADependencyFile) {
  EXPECT_EQ(pack({"--depfile", "net.d"}).status, 0);
  EXPECT_EQ(folder.read("net.d"),
            "net.bin: \\\n"
            "  in/net.dvi \\\n"
            "  in/net.h\n");
}

TEST_F(Pack, NamesThePackageThatTheUserNamedWhenItCannotBeWritten) {
  std::filesystem::resize_file(folder.path("in/net.dvi"), 5U << 20U);
  folder.write("in/net.h", "#define net_DAG_NAME \"net\"\n#define net_image_size 5242880\n");
  const run_result run = run_shell("ulimit -f 4096; \"$@\" pack -q in -o net.bin", folder.path());
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.diagnostics, "morvane: net.bin: File too large\n");
}

TEST_F(Pack, RefusesADependencyFileForAPathWithALineBreak) {
  folder.write("a\nb/net.dvi", "image");
  folder.write("a\nb/net.h", net_header);
  const run_result run =
      run_morvane({"pack", "a\nb", "-o", "new.bin", "--depfile", "net.d"}, folder.path());
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.diagnostics,
            "morvane: net.d: a dependency file cannot hold a path with a line break\n");
  EXPECT_FALSE(folder.exists("new.bin"));
  EXPECT_FALSE(folder.exists("net.d"));
}

TEST_F(Pack, WritesNoPackageWithoutItsDependencyFile) {
  expect_refused({"--depfile", "missing/net.d"}, 2, "",
                 "morvane: missing/net.d: No such file or directory\n");
}

}  // namespace
}  // namespace morvane::test

// morvane pack: the same bytes as morvane_gen, or the package as it was.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "cli/outcome.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* net_header =
    "#define net_DAG_NAME net\n"
    "#define net_image_size 5\n"
    "/* net HMB_input data */\n"
    "#define net_data_W 7\n"
    "/* net HMB_output mask */\n";

class Pack : public morvane_test {
 protected:
  void SetUp() override {
    folder.write("in/net.dvi", "image");
    folder.write("in/net.h", net_header);
  }

  [[nodiscard]] run_result pack(std::vector<std::string> options = {}) const {
    std::vector<std::string> arguments = {"pack", "in", "-o", "net.bin"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return morvane(arguments);
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
    expect_outcome(pack(options), status, output, diagnostics);
    EXPECT_EQ(folder.files(), before);
  }

  /// Checks a run that ends with status 2 and this reason, and that no file changes.
  void expect_mistake(const std::vector<std::string>& arguments, const std::string& reason) const {
    const auto before = folder.files();
    expect_morvane(arguments, 2, "", "morvane: " + reason + "\n");
    EXPECT_EQ(folder.files(), before);
  }
};

TEST_F(Pack, WritesThePackageThatTheToolWrites) {
  expect_outcome(pack(), 0, "net.bin: packed, 1 DVI, 2 ports, without vproc records, 2333 bytes\n");
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
  fs::create_symlink("missing.bin", folder.path("dangling"));
  EXPECT_EQ(pack().status, 0);
  EXPECT_EQ(morvane({"pack", "in", "-o", "dangling"}).status, 0);
  EXPECT_TRUE(fs::is_symlink(folder.path("net.bin")) && fs::is_symlink(folder.path("dangling")));
  EXPECT_TRUE(folder.read("elsewhere/net.bin") == expected());
  EXPECT_TRUE(folder.read("missing.bin") == expected());
}

TEST_F(Pack, LeavesTheOtherNamesOfAnOlderPackageAlone) {
  folder.write("net.bin", "older");
  fs::create_hard_link(folder.path("net.bin"), folder.path("kept.bin"));
  EXPECT_EQ(pack().status, 0);
  EXPECT_EQ(folder.read("kept.bin"), "older");
}

TEST_F(Pack, QuietPrintsNothingOfASuccess) {
  expect_outcome(pack({"--quiet", "--vproc"}), 0, "");
}

constexpr const char* outside =
    "in/net.h:6:26: warning: the DAG binary is at 0x9, outside the image, which has 5 bytes "
    "from 0x0 on [dagbin-outside-image]\n";

TEST_F(Pack, ShowsWarningsAndGoesOn) {
  folder.write("in/net.h", std::string(net_header) + "#define net_dagbin_start 9\n");
  expect_outcome(pack(), 0,
                 std::string(outside) +
                     "net.bin: packed, 1 DVI, 2 ports, without vproc records, 2333 bytes\n");
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
                 "in/net.dvi:1:1: error: the image has no header; net.h or _net.h is missing: "
                 "nothing can be packed [unpaired-image]\n",
                 "morvane: in: 1 error, 0 warnings: nothing is packed\n");
}

TEST_F(Pack, RefusesAnInputThatIsNoFile) {
  fs::remove(folder.path("in/net.h"));
  folder.make_folder("in/net.h");
  expect_refused({}, 2,
                 "in/net.h:1:1: error: the file cannot be read: it is a folder, so the DAG gets no "
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
  fs::create_symlink("in/net.h", folder.path("link"));
  for (const std::string name : {"in/net.dvi", "in/net.h", "link"}) {
    const std::string reason = name + ": is one of the files to pack";
    expect_mistake({"pack", "in", "-o", name}, reason);
    expect_mistake({"pack", "in", "-o", "net.bin", "--depfile", name}, reason);
  }
}

TEST_F(Pack, RefusesADependencyFileThatIsOrWouldBeThePackage) {
  folder.write("net.bin", "older");
  folder.make_folder("out");
  fs::create_symlink("net.bin", folder.path("package"));
  fs::create_directory_symlink("out", folder.path("link"));
  fs::create_symlink("out/new.bin", folder.path("dangling"));
  for (const auto& [package, depfile] :
       std::vector<std::pair<std::string, std::string>>{{"net.bin", "package"},
                                                        {"new.bin", "./new.bin"},
                                                        {"./net.bin", "net.bin"},
                                                        {"out/new.bin", folder.path("out/new.bin")},
                                                        {"out/new.bin", "link/new.bin"},
                                                        {"out/new.bin", "in/../out/new.bin"},
                                                        {"out/new.bin", "dangling"}}) {
    expect_mistake({"pack", "in", "-o", package, "--depfile", depfile},
                   depfile + ": the dependency file cannot be the package");
  }
  EXPECT_EQ(morvane({"pack", "in", "-o", "new.bin", "--depfile", "out/new.bin"}).status, 0);
}

TEST_F(Pack, RefusesOutputsThatTheNextRunWouldRead) {
  fs::create_directory_symlink("in", folder.path("link"));
  for (const std::string output :
       {"in/x.dvi", "in/x.DVI", "link/x.dvi", "in/_net.h", "in/../in/.dvi"}) {
    const std::string reason =
        output +
        ": with this name in this folder, the next run would pack the file itself or read it as a "
        "header";
    expect_mistake({"pack", "in", "-o", output}, reason);
    expect_mistake({"pack", "in", "-o", "net.bin", "--depfile", output}, reason);
  }
}

TEST_F(Pack, WritesOtherOutputsIntoTheInputFolder) {
  for (const std::string output : {"in/net.bin", "in/other.h", "in/dvi", "x.dvi", "_net.h"}) {
    EXPECT_EQ(morvane({"pack", "in", "-q", "-o", output, "--depfile", output + ".d"}).status, 0);
    EXPECT_TRUE(folder.read(output) == expected()) << output;
  }
}

TEST_F(Pack, WritesAPackageWithALongName) {
  const std::string name(255, 'n');
  for (const char* run : {"makes it", "replaces it"}) {
    EXPECT_EQ(morvane({"pack", "in", "-q", "-o", name}).status, 0) << run;
    EXPECT_TRUE(folder.read(name) == expected());
  }
}

TEST_F(Pack, RefusesToReplaceWhatIsNoFile) {
  folder.make_folder("folder");
  folder.write("file", "");
  const std::string long_name(256, 'n');
  expect_mistake({"pack", "in", "-o", "folder"}, "folder: Is a directory");
  expect_mistake({"pack", "in", "-o", "/dev/full"}, "/dev/full: it is no regular file");
  expect_mistake({"pack", "in", "-o", "missing/net.bin"},
                 "missing/net.bin: No such file or directory");
  expect_mistake({"pack", "in", "-o", "file/net.bin"}, "file/net.bin: Not a directory");
  expect_mistake({"pack", "in", "-o", long_name}, long_name + ": File name too long");
  fs::create_symlink("loop", folder.path("loop"));
  expect_morvane({"pack", "in", "-o", "loop"}, 2, "",
                 "morvane: loop: Too many levels of symbolic links\n");
}

TEST_F(Pack, TellsThatStandardOutputIsFullAfterThePackageIsThere) {
  expect_outcome(run_shell("\"$@\" pack in -o net.bin >/dev/full", folder.path()), 2, "",
                 "morvane: net.bin: is in place, but cannot be told of: standard output: No space "
                 "left on device\n");
  EXPECT_TRUE(folder.read("net.bin") == expected());
}

TEST_F(Pack, WritesADependencyFile) {
  EXPECT_EQ(pack({"--depfile", "net.d"}).status, 0);
  EXPECT_EQ(folder.read("net.d"),
            "net.bin: \\\n"
            "  in/net.dvi \\\n"
            "  in/net.h\n"
            "in/net.dvi:\n"
            "in/net.h:\n");
  fs::rename(folder.path("in"), folder.path("a b#c$d\\e\\ f"));
  expect_morvane({"pack", "-q", "a b#c$d\\e\\ f", "-o", "net bin", "--depfile", "net.d"}, 0, "");
  EXPECT_EQ(folder.read("net.d"),
            "net\\ bin: \\\n"
            "  a\\ b\\#c$$d\\e\\\\\\ f/net.dvi \\\n"
            "  a\\ b\\#c$$d\\e\\\\\\ f/net.h\n"
            "a\\ b\\#c$$d\\e\\\\\\ f/net.dvi:\n"
            "a\\ b\\#c$$d\\e\\\\\\ f/net.h:\n");
}

TEST_F(Pack, NamesThePackageThatTheUserNamedWhenItCannotBeWritten) {
  std::filesystem::resize_file(folder.path("in/net.dvi"), 5U << 20U);
  folder.write("in/net.h", "#define net_DAG_NAME \"net\"\n#define net_image_size 5242880\n");
  expect_outcome(run_shell("ulimit -f 4096; \"$@\" pack -q in -o net.bin", folder.path()), 2, "",
                 "morvane: net.bin: File too large\n");
}

TEST_F(Pack, RefusesADependencyFileForAPathWithALineBreak) {
  for (const std::string path : {"a\nb", "a\rb"}) {
    folder.write(path + "/net.dvi", "image");
    folder.write(path + "/net.h", net_header);
    expect_mistake({"pack", path, "-o", "new.bin", "--depfile", "net.d"},
                   "net.d: a dependency file cannot hold a path with a line break");
  }
}

TEST_F(Pack, WritesNoPackageWithoutItsDependencyFile) {
  expect_refused({"--depfile", "missing/net.d"}, 2, "",
                 "morvane: missing/net.d: No such file or directory\n");
}

}  // namespace
}  // namespace morvane::test

// A package path that names one of the files to pack is refused before anything happens to the
// file.
#include <sys/stat.h>

#include <filesystem>

#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;

class PackageAmongInputs : public tool_test {
 protected:
  void SetUp() override { put_dag("net", header, "image"); }

  /// Checks that the path is refused and that no input changes.
  void expect_refused(const std::string& path) const {
    const folder_content before = folder.files();
    expect_tool({"-d", "in", "-f", path, "-c"}, 255, "error: can't open file " + path + "\n");
    expect_files(folder.files(), before);
  }

  /// Checks that the path takes the package and that no input changes.
  void expect_packed(const std::string& path) const {
    EXPECT_EQ(tool({"-d", "in", "-f", path}).status, 0);
    expect_bytes(folder.read(path), package);
    EXPECT_EQ(folder.read("in/net.dvi"), "image");
    EXPECT_EQ(folder.read("in/_net.h"), header);
  }

  const std::string header = dag_lines("net", 5);
  const std::string package =
      package_header(1) + dvi_record({.img_size = 5, .pkg_size = 5, .dag_name = "net"}) + "image";
};

TEST_F(PackageAmongInputs, AnInputIsRefusedByWhateverPath) {
  fs::create_symlink("in/net.dvi", folder.path("symbolic"));
  fs::create_hard_link(folder.path("in/_net.h"), folder.path("hard"));
  for (const std::string& path :
       {std::string("in/net.dvi"), std::string("in/_net.h"), std::string("./in/../in//net.dvi"),
        folder.path("in/_net.h"), std::string("symbolic"), std::string("hard")}) {
    expect_refused(path);
  }
}

TEST_F(PackageAmongInputs, TheTargetOfAnInputThatIsALinkIsRefused) {
  fs::rename(folder.path("in/net.dvi"), folder.path("image"));
  fs::create_symlink("../image", folder.path("in/net.dvi"));
  expect_refused("image");
}

TEST_F(PackageAmongInputs, AnInputKeepsItsTimes) {
  struct stat before {};
  struct stat after {};
  ASSERT_EQ(::stat(folder.path("in/net.dvi").c_str(), &before), 0);
  expect_refused("in/net.dvi");
  ASSERT_EQ(::stat(folder.path("in/net.dvi").c_str(), &after), 0);
  EXPECT_EQ(after.st_mtim.tv_sec, before.st_mtim.tv_sec);
  EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
}

TEST_F(PackageAmongInputs, AFileOfTheFolderThatIsNotPackedIsReplaced) {
  const std::string longer(300, '.');
  folder.write("in/old.h", "of another run, and longer than the package is going to be" + longer);
  expect_packed("in/old.h");
}

TEST_F(PackageAmongInputs, AnOlderPackageInTheFolderIsReplaced) {
  folder.write("in/net.bin", std::string(1000, 'x'));
  expect_packed("in/net.bin");
}

TEST_F(PackageAmongInputs, ADanglingLinkGetsItsFile) {
  fs::create_symlink("target", folder.path("link"));
  expect_packed("link");
  EXPECT_TRUE(fs::is_symlink(folder.path("link")));
}

TEST_F(PackageAmongInputs, AnOlderPackageKeepsItsOtherNames) {
  folder.write("old.bin", "old");
  fs::create_hard_link(folder.path("old.bin"), folder.path("net.bin"));
  expect_packed("net.bin");
  expect_bytes(folder.read("old.bin"), package);
}

TEST_F(PackageAmongInputs, AFolderIsRefused) {
  folder.make_folder("folder");
  expect_refused("folder");
}

}  // namespace
}  // namespace morvane::test

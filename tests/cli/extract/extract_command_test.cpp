// morvane extract, as a user starts it.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <map>

#include "cli/outcome.h"
#include "harness/packages.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;
using file_contents = std::map<std::string, std::string>;

/// DVIs without ports, each with an image of 4 bytes.
std::string package_of(const std::vector<std::string>& dag_names,
                       const std::vector<std::string>& images) {
  std::string package = header(static_cast<std::uint32_t>(dag_names.size()));
  for (const std::string& name : dag_names) {
    package += bytes(dvi(name, 4));
  }
  for (const std::string& image : images) {
    package += image;
  }
  return package;
}

std::string two_images() {
  return package_of({"first", "second"}, {"AAAA", "BBBB"});
}

class ExtractCommand : public morvane_test {
 protected:
  void SetUp() override {
    folder.write("net.bin", two_images());
    folder.make_folder("out");
  }

  void write_large_package(std::uint32_t image_size) const {
    folder.write("net.bin", header(1) + bytes(dvi("net", image_size)));
    fs::resize_file(folder.path("net.bin"), 168 + image_size);
  }
};

TEST_F(ExtractCommand, WritesEveryImageToItsFile) {
  expect_morvane({"extract", "net.bin", "-o", "out"}, 0,
                 "out/first.dvi: 4 bytes\nout/second.dvi: 4 bytes\n");
  EXPECT_EQ(folder.files("out"), (file_contents{{"first.dvi", "AAAA"}, {"second.dvi", "BBBB"}}));
}

TEST_F(ExtractCommand, WritesToTheCurrentFolder) {
  expect_morvane({"extract", "--quiet", "net.bin"}, 0, "");
  EXPECT_EQ(
      folder.files(),
      (file_contents{{"first.dvi", "AAAA"}, {"net.bin", two_images()}, {"second.dvi", "BBBB"}}));
}

TEST_F(ExtractCommand, WritesOnlyTheImagesThatAreNamed) {
  expect_morvane({"extract", "-o", "out", "net.bin", "second"}, 0, "out/second.dvi: 4 bytes\n");
  EXPECT_EQ(folder.files("out"), (file_contents{{"second.dvi", "BBBB"}}));
}

TEST_F(ExtractCommand, TellsOfANameThatNoDviHas) {
  expect_morvane({"extract", "net.bin", "third\n", "second"}, 2, "second.dvi: 4 bytes\n",
                 "morvane: net.bin: no DVI has the name \"third\\x0a\"\n");
  expect_morvane({"extract", "-o", "-", "net.bin", "third"}, 2, "",
                 "morvane: net.bin: no DVI has the name \"third\"\n");
}

TEST_F(ExtractCommand, GivesAFileThePermissionsThatTheUserWants) {
  expect_outcome(run_shell("umask 027; \"$@\" extract -q net.bin first", folder.path()), 0, "");
  EXPECT_EQ(fs::status(folder.path("first.dvi")).permissions(), static_cast<fs::perms>(0640));
}

TEST_F(ExtractCommand, ReplacesNoFileUnlessItIsTold) {
  folder.write("out/first.dvi", "mine");
  expect_morvane({"extract", "net.bin", "-o", "out"}, 2, "out/second.dvi: 4 bytes\n",
                 "morvane: out/first.dvi: the file exists; --force replaces it\n");
  EXPECT_EQ(folder.files("out"), (file_contents{{"first.dvi", "mine"}, {"second.dvi", "BBBB"}}));
  expect_morvane({"extract", "--force", "net.bin", "-o", "out"}, 0,
                 "out/first.dvi: 4 bytes\nout/second.dvi: 4 bytes\n");
  EXPECT_EQ(folder.files("out"), (file_contents{{"first.dvi", "AAAA"}, {"second.dvi", "BBBB"}}));
}

TEST_F(ExtractCommand, NeverWritesThroughALink) {
  folder.write("mine", "mine");
  fs::create_symlink("../mine", folder.path("out/first.dvi"));
  fs::create_symlink("../missing", folder.path("out/second.dvi"));
  expect_morvane({"extract", "net.bin", "-o", "out"}, 2, "",
                 "morvane: out/first.dvi: the file exists; --force replaces it\nmorvane: "
                 "out/second.dvi: the file exists; --force replaces it\n");
  expect_morvane({"extract", "-q", "--force", "net.bin", "-o", "out"}, 0, "");
  EXPECT_EQ(folder.read("mine"), "mine");
  EXPECT_FALSE(folder.exists("missing"));
  EXPECT_EQ(folder.files("out"), (file_contents{{"first.dvi", "AAAA"}, {"second.dvi", "BBBB"}}));
}

TEST_F(ExtractCommand, RefusesNamesThatAreUnsafeAsFileNames) {
  folder.write("net.bin", package_of({"../up", "", "a\tb", "safe", ".."},
                                     {"AAAA", "BBBB", "CCCC", "DDDD", "EEEE"}));
  expect_morvane({"extract", "net.bin", "-o", "out", "--force"}, 1, "out/safe.dvi: 4 bytes\n",
                 "morvane: net.bin: not extracted: DVI 0: dag_name \"../up\" holds a slash\n"
                 "morvane: net.bin: not extracted: DVI 1: dag_name is empty\n"
                 "morvane: net.bin: not extracted: DVI 2: dag_name \"a\\x09b\" holds a control "
                 "character\n"
                 "morvane: net.bin: not extracted: DVI 4: dag_name \"..\" stands for a folder\n");
  EXPECT_EQ(folder.files("out"), (file_contents{{"safe.dvi", "DDDD"}}));
  EXPECT_FALSE(folder.exists("up.dvi"));
}

TEST_F(ExtractCommand, WritesTheFirstOfTheImagesWithOneName) {
  folder.write("net.bin", package_of({"net", "net"}, {"AAAA", "BBBB"}));
  expect_morvane({"extract", "net.bin", "-o", "out", "--force"}, 1, "out/net.dvi: 4 bytes\n",
                 "morvane: net.bin: not extracted: DVI 1: dag_name \"net\" is that of DVI 0 too\n");
  EXPECT_EQ(folder.files("out"), (file_contents{{"net.dvi", "AAAA"}}));
}

TEST_F(ExtractCommand, ListsTheNames) {
  folder.write("net.bin", package_of({"../up", "second", "first"}, {"AAAA", "BBBB", "CCCC"}));
  expect_morvane({"extract", "--list", "net.bin"}, 1, "second\nfirst\n",
                 "morvane: net.bin: not extracted: DVI 0: dag_name \"../up\" holds a slash\n");
  EXPECT_EQ(folder.files().size(), 1U);
}

TEST_F(ExtractCommand, WritesOneImageToStandardOutput) {
  folder.write("one.bin", package_of({"../up"}, {std::string("A\0\nA", 4)}));
  expect_morvane({"extract", "-o", "-", "net.bin", "second"}, 0, "BBBB");
  expect_morvane({"extract", "-o", "-", "one.bin"}, 0, std::string("A\0\nA", 4));
  EXPECT_EQ(folder.files().size(), 2U);
}

TEST_F(ExtractCommand, RefusesToReplaceThePackage) {
  const std::string package = package_of({"net", "first"}, {"BBBB", "AAAA"});
  folder.write("net.dvi", package);
  expect_morvane({"extract", "--force", "net.dvi"}, 2, "first.dvi: 4 bytes\n",
                 "morvane: net.dvi: the image must not replace the package that it comes from\n");
  EXPECT_EQ(
      folder.files(),
      (file_contents{{"first.dvi", "AAAA"}, {"net.bin", two_images()}, {"net.dvi", package}}));
}

TEST_F(ExtractCommand, RefusesToWriteSeveralImagesToStandardOutput) {
  folder.write("twice.bin", package_of({"net", "net"}, {"AAAA", "BBBB"}));
  const std::string_view refusal =
      "morvane: standard output takes one image, not 2; give one of the names that morvane extract "
      "--list prints\n";
  expect_morvane({"extract", "-o", "-", "net.bin"}, 2, "", refusal);
  expect_morvane({"extract", "-o", "-", "twice.bin", "net"}, 2, "", refusal);
}

TEST_F(ExtractCommand, WritesImagesThatComeBeforeTheDamage) {
  folder.write("net.bin", two_images().substr(0, two_images().size() - 1));
  const std::string_view warning =
      "morvane: net.bin: the package is damaged; only what comes before the damage is extracted, "
      "and morvane check tells more\n";
  expect_morvane({"extract", "net.bin"}, 1, "first.dvi: 4 bytes\n", warning);
  expect_morvane({"extract", "-o", "-", "net.bin", "first"}, 1, "AAAA", warning);
  EXPECT_FALSE(folder.exists("second.dvi"));
}

TEST_F(ExtractCommand, TellsWhyAFileCannotBeReadOrWritten) {
  expect_morvane({"extract", "none"}, 2, "", "morvane: none: No such file or directory\n");
  expect_morvane({"extract", "net.bin", "-o", "net.bin"}, 2, "",
                 "morvane: net.bin: Not a directory\n");
  folder.make_folder("out/first.dvi");
  expect_morvane({"extract", "--force", "net.bin", "-o", "out", "first"}, 2, "",
                 "morvane: out/first.dvi: Is a directory\n");
  EXPECT_EQ(folder.files("out"), file_contents{});
  expect_outcome(run_shell("\"$@\" extract -o - net.bin first >/dev/full", folder.path()), 2, "",
                 "morvane: standard output: No space left on device\n");
}

TEST_F(ExtractCommand, LeavesNothingOfAFileThatBecomesTooLarge) {
  write_large_package(4U << 20U);
  const std::string extract = "ulimit -f 4096; \"$@\" extract net.bin -o ";
  expect_outcome(run_shell(extract + "out", folder.path()), 2, "",
                 "morvane: out/net.dvi: File too large\n");
  EXPECT_TRUE(fs::is_empty(folder.path("out")));
}

TEST_F(ExtractCommand, LeavesAWholeFileOrNoneAtASignal) {
  write_large_package(64U << 20U);
  for (const char* delay : {"0.01", "0.02", "0.04", "0.08"}) {
    run_shell("\"$@\" extract -q --force net.bin -o out & sleep " + std::string(delay) +
                  "; kill $! || :; wait",
              folder.path());
    for (const auto& entry : fs::directory_iterator(folder.path("out"))) {
      EXPECT_EQ(entry.path().filename(), "net.dvi");
      EXPECT_EQ(entry.file_size(), 64U << 20U);
    }
  }
}

TEST_F(ExtractCommand, NeedsLittleMemoryForALargeImage) {
  write_large_package(64U << 20U);
  const long idle = morvane({"--version"}).peak_kib;
  const run_result run = morvane({"extract", "-q", "net.bin"});
  EXPECT_EQ(run.status, 0);
  if (run_prefix().empty()) {
    EXPECT_LT(run.peak_kib, idle + 16 * 1024);
  }
}

}  // namespace
}  // namespace morvane::test

// The folder that morvane extract makes.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <map>

#include "cli/outcome.h"
#include "harness/packages.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;

/// A DVI without ports.
std::string package_with_image(std::string_view image) {
  return header(1) + bytes(dvi("net", static_cast<std::uint32_t>(image.size()))) +
         std::string(image);
}

TEST(ExtractFolder, IsMadeWithThoseAboveIt) {
  const scratch_folder folder;
  folder.write("net.bin", package_with_image("AAAA"));
  for (const char* path : {"out", "a/b/c", "slash/"}) {
    EXPECT_EQ(run_morvane({"extract", "net.bin", "-o", path}, folder.path()).status, 0) << path;
    EXPECT_EQ(folder.files(path), (std::map<std::string, std::string>{{"net.dvi", "AAAA"}}));
  }
  const std::string absolute = folder.path("deep/er");
  EXPECT_EQ(run_morvane({"extract", "net.bin", "-o", absolute}, "/").status, 2);
  EXPECT_EQ(run_morvane({"extract", folder.path("net.bin"), "-o", absolute}, "/").status, 0);
  EXPECT_TRUE(folder.exists("deep/er/net.dvi"));
}

TEST(ExtractFolder, HasThePermissionsThatTheUserWants) {
  const scratch_folder folder;
  folder.write("net.bin", package_with_image("AAAA"));
  expect_outcome(run_shell("umask 027; \"$@\" extract -q net.bin -o out", folder.path()), 0, "");
  EXPECT_EQ(fs::status(folder.path("out")).permissions(), static_cast<fs::perms>(0750));
}

TEST(ExtractFolder, IsRemovedWhenNoImageGotThere) {
  const scratch_folder folder;
  constexpr std::uint32_t image_size = 4U << 20U;
  folder.write("net.bin", header(1) + bytes(dvi("net", image_size)));
  fs::resize_file(folder.path("net.bin"), 168 + image_size);
  folder.make_folder("mine");
  expect_outcome(run_shell("ulimit -f 4096; \"$@\" extract net.bin -o mine/a/b", folder.path()), 2,
                 "", "morvane: mine/a/b/net.dvi: File too large\n");
  EXPECT_TRUE(folder.exists("mine"));
  EXPECT_FALSE(folder.exists("mine/a"));
  EXPECT_EQ(run_morvane({"extract", "net.bin", "other", "-o", "out"}, folder.path()).status, 2);
  EXPECT_FALSE(folder.exists("out"));
}

TEST(ExtractFolder, IsNotRemovedWhenItWasThereBefore) {
  const scratch_folder folder;
  folder.write("net.bin", package_with_image("AAAA"));
  folder.make_folder("out");
  EXPECT_EQ(run_morvane({"extract", "net.bin", "other", "-o", "out"}, folder.path()).status, 2);
  EXPECT_TRUE(folder.exists("out"));
}

TEST(ExtractFolder, CannotBeMadeInTheTargetOfABrokenLink) {
  const scratch_folder folder;
  folder.write("net.bin", package_with_image("AAAA"));
  fs::create_symlink("missing", folder.path("link"));
  expect_outcome(run_morvane({"extract", "net.bin", "-o", "link/out"}, folder.path()), 2, "",
                 "morvane: link/out: No such file or directory\n");
  EXPECT_FALSE(folder.exists("missing"));
}

TEST(ExtractFolder, IsNotMadeForAList) {
  const scratch_folder folder;
  folder.write("net.bin", package_with_image("AAAA"));
  expect_outcome(run_morvane({"extract", "--list", "net.bin", "-o", "out"}, folder.path()), 0,
                 "net\n");
  EXPECT_FALSE(folder.exists("out"));
}

}  // namespace
}  // namespace morvane::test

// A file that takes the place of another one.
#include "cli/files/atomic_replacement.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <map>

#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

using cli::atomic_replacement;
using file_contents = std::map<std::string, std::string>;

/// Replaces a file by one with this content. Returns 0 or an errno.
int replace_file(const std::string& path, std::string_view content) {
  atomic_replacement file;
  if (const int error = file.find(path); error != 0) {
    return error;
  }
  if (const int error = file.create(); error != 0) {
    return error;
  }
  EXPECT_EQ(::write(file.descriptor(), content.data(), content.size()),
            static_cast<ssize_t>(content.size()));
  const int error = file.complete(false);
  return error == 0 ? file.put_in_place() : error;
}

TEST(AtomicReplacement, ReplacesAFile) {
  const scratch_folder folder;
  folder.write("net.d", "older");
  EXPECT_EQ(replace_file(folder.path("net.d"), "newer"), 0);
  EXPECT_EQ(replace_file(folder.path("new.d"), "new"), 0);
  EXPECT_EQ(folder.files(), (file_contents{{"net.d", "newer"}, {"new.d", "new"}}));
}

TEST(AtomicReplacement, ReplacesAFileOfTheCurrentFolder) {
  const scratch_folder folder;
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  EXPECT_EQ(replace_file("net.d", "new"), 0);
  std::filesystem::current_path(before);
  EXPECT_EQ(folder.files(), (file_contents{{"net.d", "new"}}));
}

TEST(AtomicReplacement, KeepsThePermissions) {
  const scratch_folder folder;
  folder.write("net.d", "older");
  ASSERT_EQ(::chmod(folder.path("net.d").c_str(), 0604), 0);
  EXPECT_EQ(replace_file(folder.path("net.d"), "newer"), 0);
  struct stat status {};
  ASSERT_EQ(::stat(folder.path("net.d").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0604U);
}

TEST(AtomicReplacement, ReplacesTheFileThatALinkLeadsTo) {
  const scratch_folder folder;
  ASSERT_EQ(::symlink("missing.d", folder.path("net.d").c_str()), 0);
  EXPECT_EQ(replace_file(folder.path("net.d"), "new"), 0);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path("net.d")));
  EXPECT_EQ(folder.read("missing.d"), "new");
}

TEST(AtomicReplacement, IsNotMadeInPlaceOfWhatIsNoFile) {
  const scratch_folder folder;
  folder.write("file", "");
  ASSERT_EQ(::symlink("loop", folder.path("loop").c_str()), 0);
  EXPECT_EQ(replace_file(folder.path(), "new"), EISDIR);
  EXPECT_EQ(replace_file("/dev/null", "new"), EINVAL);
  EXPECT_EQ(replace_file(folder.path("file/net.d"), "new"), ENOTDIR);
  EXPECT_EQ(replace_file(folder.path("missing/net.d"), "new"), ENOENT);
  EXPECT_EQ(replace_file(folder.path("loop"), "new"), ELOOP);
}

TEST(AtomicReplacement, MayHaveANameOfAnyLengthThatTheSystemAllows) {
  const scratch_folder folder;
  const std::string longest(255, 'n');
  EXPECT_EQ(replace_file(folder.path(longest), "new"), 0);
  EXPECT_EQ(replace_file(folder.path(longest), "newer"), 0);
  EXPECT_EQ(replace_file(folder.path(std::string(256, 'n')), "new"), ENAMETOOLONG);
  EXPECT_EQ(folder.files(), (file_contents{{longest, "newer"}}));
}

TEST(AtomicReplacement, IsOnTheDiskWhenItIsSynchronised) {
  const scratch_folder folder;
  atomic_replacement file;
  ASSERT_EQ(file.find(folder.path("net.bin")), 0);
  ASSERT_EQ(file.prepare_sync(), 0);
  ASSERT_EQ(file.create(), 0);
  EXPECT_EQ(file.complete(true), 0);
  EXPECT_EQ(file.put_in_place(), 0);
  EXPECT_EQ(file.sync_folder(), 0);
  EXPECT_EQ(folder.files(), (file_contents{{"net.bin", ""}}));
}

TEST(AtomicReplacement, NeedsNoSyncWhereThereIsNothingToSynchronise) {
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  EXPECT_EQ(cli::sync_file(ends[1]), 0);
  ::close(ends[0]);
  ::close(ends[1]);
  EXPECT_EQ(cli::sync_file(ends[1]), EBADF);
}

}  // namespace
}  // namespace morvane::test

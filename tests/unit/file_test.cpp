#include "io/file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <utility>

#include "harness/scratch_folder.h"

namespace morvane {
namespace {

using test::scratch_folder;

std::span<const std::byte> bytes(std::string_view text) {
  return std::as_bytes(std::span(text));
}

TEST(ReadFile, GivesEveryByte) {
  const scratch_folder folder;
  folder.write("a", std::string("one\r\n\0\xFF", 7));
  EXPECT_EQ(read_file(folder.path("a")), std::string("one\r\n\0\xFF", 7));
}

TEST(ReadFile, GivesAFileThatIsLargerThanAChunk) {
  const scratch_folder folder;
  std::string content(3 * 256 * 1024 + 5, 'a');
  content.back() = 'z';
  folder.write("large", content);
  EXPECT_EQ(read_file(folder.path("large")), content);
}

TEST(ReadFile, GivesAFileThatDoesNotTellItsSize) {
  EXPECT_NE(read_file("/proc/self/status").find("Name:"), std::string::npos);
}

TEST(ReadFile, GivesNothingOfAMissingFile) {
  const scratch_folder folder;
  EXPECT_EQ(read_file(folder.path("missing")), "");
}

TEST(ReadFile, GivesNothingOfAFolder) {
  const scratch_folder folder;
  EXPECT_EQ(read_file(folder.path()), "");
}

TEST(ReadFile, DoesNotWaitForAWriterToAPipe) {
  const scratch_folder folder;
  ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(read_file(folder.path("pipe")), "");
}

TEST(ReadBytes, FillsUpToTheEndOfTheFile) {
  const scratch_folder folder;
  folder.write("a", "12345");
  const file_handle file = open_to_read(folder.path("a")).handle;
  std::string text(8, '-');
  EXPECT_EQ(read_bytes(file, std::as_writable_bytes(std::span(text).first(2))), 2U);
  EXPECT_EQ(text, "12------");
  EXPECT_EQ(read_bytes(file, std::as_writable_bytes(std::span(text))), 3U);
  EXPECT_EQ(text, "345-----");
}

TEST(OpenToRead, IsClosedForAMissingFile) {
  const scratch_folder folder;
  EXPECT_FALSE(open_to_read(folder.path("missing")).handle.is_open());
}

TEST(OpenToWrite, EmptiesAFile) {
  const scratch_folder folder;
  folder.write("a", "long content");
  write_bytes(open_to_write(folder.path("a")), bytes("new"));
  EXPECT_EQ(folder.read("a"), "new");
}

TEST(OpenToWrite, IsClosedInAMissingFolder) {
  const scratch_folder folder;
  EXPECT_FALSE(open_to_write(folder.path("missing/a")).is_open());
}

TEST(OpenToAppend, CreatesAFileAndWritesAtItsEnd) {
  const scratch_folder folder;
  write_bytes(open_to_append_in_place(folder.path("a")), bytes("one "));
  write_bytes(open_to_append_in_place(folder.path("a")), bytes("two"));
  EXPECT_EQ(folder.read("a"), "one two");
}

TEST(OpenInPlace, FollowsNoSymbolicLink) {
  const scratch_folder folder;
  folder.write("elsewhere", "content");
  std::filesystem::create_symlink("elsewhere", folder.path("link"));
  EXPECT_FALSE(open_to_write_in_place(folder.path("link")).is_open());
  EXPECT_FALSE(open_to_append_in_place(folder.path("link")).is_open());
  EXPECT_EQ(folder.read("elsewhere"), "content");
}

TEST(OpenInPlace, EmptiesOrCreatesTheFileItself) {
  const scratch_folder folder;
  folder.write("a", "long content");
  write_bytes(open_to_write_in_place(folder.path("a")), bytes("new"));
  write_bytes(open_to_write_in_place(folder.path("b")), bytes("new"));
  EXPECT_EQ(folder.read("a"), "new");
  EXPECT_EQ(folder.read("b"), "new");
}

TEST(RegularFileSize, IsThatOfTheFile) {
  const scratch_folder folder;
  folder.write("empty", "");
  folder.write("five", "12345");
  EXPECT_EQ(open_to_read(folder.path("empty")).size, 0);
  EXPECT_EQ(open_to_read(folder.path("five")).size, 5);
}

TEST(RegularFileSize, IsMinusOneForAFolderAndForNoFile) {
  const scratch_folder folder;
  EXPECT_EQ(open_to_read(folder.path()).size, -1);
  EXPECT_EQ(open_to_read(folder.path("missing")).size, -1);
}

TEST(FileHandle, HandsItsFileOver) {
  const scratch_folder folder;
  file_handle first = open_to_write(folder.path("a"));
  const int descriptor = first.descriptor();
  file_handle second(std::move(first));
  EXPECT_FALSE(first.is_open());  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(second.descriptor(), descriptor);
  second = file_handle();
  EXPECT_FALSE(second.is_open());
}

TEST(JoinPath, AlwaysAddsTheSlash) {
  EXPECT_EQ(join_path("out", "a.h"), "out/a.h");
  EXPECT_EQ(join_path("out/", "a.h"), "out//a.h");
  EXPECT_EQ(join_path("", "a.h"), "/a.h");
}

}  // namespace
}  // namespace morvane

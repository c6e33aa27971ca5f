#include "io/file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <thread>
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
  EXPECT_EQ(read_file(folder.path("a")).text, std::string("one\r\n\0\xFF", 7));
}

TEST(ReadFile, GivesAFileThatIsLargerThanAChunk) {
  const scratch_folder folder;
  std::string content(3 * 256 * 1024 + 5, 'a');
  content.back() = 'z';
  folder.write("large", content);
  EXPECT_EQ(read_file(folder.path("large")).text, content);
}

TEST(ReadFile, GivesAFileThatDoesNotTellItsSize) {
  EXPECT_NE(read_file("/proc/self/status").text.find("Name:"), std::string::npos);
}

TEST(ReadFile, GivesTheReasonForAMissingFile) {
  const scratch_folder folder;
  const file_content content = read_file(folder.path("missing"));
  EXPECT_EQ(content.text, "");
  EXPECT_EQ(content.error, ENOENT);
}

TEST(ReadFile, GivesTheReasonForAFolder) {
  const scratch_folder folder;
  const file_content content = read_file(folder.path());
  EXPECT_EQ(content.text, "");
  EXPECT_EQ(content.error, EISDIR);
}

TEST(ReadFile, DoesNotWaitForAWriterToAPipe) {
  const scratch_folder folder;
  ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(read_file(folder.path("pipe")).text, "");
}

TEST(ReadBytes, FillsUpToTheEndOfTheFile) {
  const scratch_folder folder;
  folder.write("a", "12345");
  const file_handle file = open_to_read(folder.path("a")).handle;
  std::string text(8, '-');
  EXPECT_EQ(read_bytes(file, std::as_writable_bytes(std::span(text).first(2))).count, 2U);
  EXPECT_EQ(text, "12------");
  EXPECT_EQ(read_bytes(file, std::as_writable_bytes(std::span(text))).count, 3U);
  EXPECT_EQ(text, "345-----");
}

TEST(OpenToRead, IsClosedForAMissingFile) {
  const scratch_folder folder;
  EXPECT_FALSE(open_to_read(folder.path("missing")).handle.is_open());
}

TEST(OpenToWrite, CreatesAFile) {
  const scratch_folder folder;
  const writable_file file = open_to_write(folder.path("a"));
  EXPECT_TRUE(file.is_new);
  EXPECT_EQ(write_bytes(file.handle, bytes("new")), 3U);
  EXPECT_EQ(folder.read("a"), "new");
}

TEST(OpenToWrite, LeavesTheContentOfAnExistingFileAndTellsWhichItIs) {
  const scratch_folder folder;
  folder.write("a", "content");
  const writable_file file = open_to_write(folder.path("a"));
  EXPECT_TRUE(file.handle.is_open());
  EXPECT_FALSE(file.is_new);
  EXPECT_EQ(file.identity, identity_at(folder.path("a")));
  EXPECT_EQ(folder.read("a"), "content");
}

TEST(OpenToWrite, CreatesTheTargetOfADanglingLink) {
  const scratch_folder folder;
  std::filesystem::create_symlink("target", folder.path("link"));
  EXPECT_EQ(write_bytes(open_to_write(folder.path("link")).handle, bytes("new")), 3U);
  EXPECT_EQ(folder.read("target"), "new");
}

TEST(OpenToWrite, IsClosedInAMissingFolder) {
  const scratch_folder folder;
  EXPECT_FALSE(open_to_write(folder.path("missing/a")).handle.is_open());
}

TEST(EmptyFile, RemovesTheContent) {
  const scratch_folder folder;
  folder.write("a", "content");
  EXPECT_TRUE(empty_file(open_to_write(folder.path("a")).handle));
  EXPECT_EQ(folder.read("a"), "");
}

TEST(EmptyFile, HasNothingToDoForADevice) {
  EXPECT_TRUE(empty_file(open_to_write("/dev/null").handle));
}

TEST(EmptyFile, FailsForAClosedHandle) {
  EXPECT_FALSE(empty_file(file_handle()));
}

TEST(Identity, IsTheSameUnderEveryNameOfAFile) {
  const scratch_folder folder;
  folder.write("a", "content");
  folder.write("b", "content");
  std::filesystem::create_hard_link(folder.path("a"), folder.path("hard"));
  std::filesystem::create_symlink("a", folder.path("soft"));
  EXPECT_EQ(identity_at(folder.path("hard")), identity_at(folder.path("a")));
  EXPECT_EQ(identity_at(folder.path("soft")), identity_at(folder.path("a")));
  EXPECT_EQ(open_to_read(folder.path("hard")).identity, identity_at(folder.path("a")));
  EXPECT_NE(identity_at(folder.path("b")), identity_at(folder.path("a")));
  EXPECT_EQ(identity_at(folder.path("missing")), std::nullopt);
}

TEST(WriteBytes, TellsHowManyTheSystemTook) {
  EXPECT_EQ(write_bytes(open_to_write("/dev/full").handle, bytes("lost")), 0U);
}

TEST(WriteBytes, WaitsForAReaderInNonBlockingMode) {
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe2(ends.data(), O_NONBLOCK), 0);
  const file_handle reader(ends[0]);
  const std::string text(1 << 20, 'x');
  std::size_t written = 0;
  std::thread writer([&] {
    const file_handle end(ends[1]);
    written = write_bytes(end, bytes(text));
  });
  std::string received;
  std::string part(65536, '-');
  pollfd waiting{.fd = reader.descriptor(), .events = POLLIN, .revents = 0};
  while (::poll(&waiting, 1, 10000) > 0) {
    const std::size_t got = read_bytes(reader, std::as_writable_bytes(std::span(part))).count;
    if (got == 0) {
      break;
    }
    received.append(part, 0, got);
  }
  writer.join();
  EXPECT_EQ(written, text.size());
  EXPECT_EQ(received, text);
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
  file_handle first = open_to_write(folder.path("a")).handle;
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

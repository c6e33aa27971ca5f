#include "io/file.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <utility>

#include "harness/filled_pipe.h"
#include "harness/scratch_folder.h"

namespace morvane {
namespace {

using test::scratch_folder;

TEST(ReadFile, GivesAFileThatIsLargerThanAChunk) {
  const scratch_folder folder;
  std::string content(3 * 256 * 1024 + 5, 'a');
  content.back() = 'z';
  folder.write("large", content);
  EXPECT_EQ(read_file(folder.path("large")).text, content);
}

TEST(ReadFile, GivesAllThatAPipeHolds) {
  const scratch_folder folder;
  const std::string content(3 * 256 * 1024 + 5, 'a');
  const test::filled_pipe pipe(folder.path("pipe"), content);
  if (!pipe.filled()) {
    GTEST_SKIP() << "such large pipes cannot be had here";
  }
  EXPECT_EQ(read_file(folder.path("pipe")).text, content);
}

TEST(ReadFile, GivesTheReasonForAMissingFileAndForAFolder) {
  const scratch_folder folder;
  EXPECT_EQ(read_file(folder.path("missing")).error, ENOENT);
  EXPECT_EQ(read_file(folder.path()).error, EISDIR);
}

TEST(EmptyFile, FailsForAClosedHandle) {
  EXPECT_FALSE(empty_file(file_handle()));
}

TEST(WriteBytes, TellsHowManyTheSystemTook) {
  const std::string text = "lost";
  EXPECT_EQ(write_bytes(open_to_write("/dev/full").handle, std::as_bytes(std::span(text))), 0U);
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

}  // namespace
}  // namespace morvane

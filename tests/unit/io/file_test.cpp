#include "io/file.h"

#include <gtest/gtest.h>

#include <cerrno>

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

}  // namespace
}  // namespace morvane

#include "io/output_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "harness/scratch_folder.h"
#include "unit/written_text.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;
using test::scratch_folder;
using test::write_text;

class OutputFile : public testing::Test {
 protected:
  [[nodiscard]] file_handle create(const std::string& name) const {
    return create_file(output, name, kept);
  }

  /// Creates a file with a text, as a program that goes on with it later.
  [[nodiscard]] created_file create_with(const std::string& name, std::string_view text) const {
    const file_handle file = create(name);
    write_text(file, text);
    return {.identity = identity_in(*status_of(file)), .size = text.size()};
  }

  scratch_folder folder;
  file_handle output = open_folder(folder.path());
  file_identity kept{};
};

TEST_F(OutputFile, IsCreated) {
  write_text(create("a"), "new");
  EXPECT_EQ(folder.read("a"), "new");
}

TEST_F(OutputFile, TakesThePlaceOfAFile) {
  folder.write("a", "longer");
  write_text(create("a"), "new");
  EXPECT_EQ(folder.read("a"), "new");
}

TEST_F(OutputFile, TakesThePlaceOfAHardLink) {
  folder.write("other", "content");
  fs::create_hard_link(folder.path("other"), folder.path("a"));
  write_text(create("a"), "new");
  EXPECT_EQ(folder.read("a"), "new");
  EXPECT_EQ(folder.read("other"), "content");
}

TEST_F(OutputFile, TakesThePlaceOfASymbolicLink) {
  folder.write("other", "content");
  fs::create_symlink("other", folder.path("a"));
  write_text(create("a"), "new");
  EXPECT_FALSE(fs::is_symlink(folder.path("a")));
  EXPECT_EQ(folder.read("a"), "new");
  EXPECT_EQ(folder.read("other"), "content");
}

TEST_F(OutputFile, TakesThePlaceOfAPipe) {
  ASSERT_EQ(::mkfifo(folder.path("a").c_str(), 0600), 0);
  write_text(create("a"), "new");
  EXPECT_EQ(folder.read("a"), "new");
}

TEST_F(OutputFile, IsClosedWhereAFolderStands) {
  folder.make_folder("a");
  EXPECT_FALSE(create("a").is_open());
  EXPECT_TRUE(fs::is_directory(folder.path("a")));
}

TEST_F(OutputFile, IsClosedWhereTheKeptFileStands) {
  folder.write("a", "content");
  kept = *identity_at(folder.path("a"));
  EXPECT_FALSE(create("a").is_open());
  EXPECT_FALSE(remove_file(output, "a", kept));
  EXPECT_EQ(folder.read("a"), "content");
}

TEST_F(OutputFile, IsClosedInAFolderThatCannotBeOpened) {
  const file_handle missing = open_folder(folder.path("missing"));
  EXPECT_FALSE(missing.is_open());
  EXPECT_FALSE(create_file(missing, "a", kept).is_open());
  EXPECT_FALSE(remove_file(missing, "a", kept));
}

TEST_F(OutputFile, StaysInTheFolderThatWasOpened) {
  folder.make_folder("out");
  const file_handle opened = open_folder(folder.path("out"));
  fs::rename(folder.path("out"), folder.path("moved"));
  folder.make_folder("elsewhere");
  fs::create_symlink("elsewhere", folder.path("out"));
  write_text(create_file(opened, "a", kept), "new");
  EXPECT_EQ(folder.read("moved/a"), "new");
  EXPECT_TRUE(folder.files("elsewhere").empty());
}

TEST_F(OutputFile, IsWrittenAtItsEndWhenItIsReopened) {
  const created_file created = create_with("a", "one ");
  write_text(reopen_file(output, "a", created), "two");
  EXPECT_EQ(folder.read("a"), "one two");
}

TEST_F(OutputFile, IsNotReopenedAfterItWasDeleted) {
  const created_file created = create_with("a", "one");
  fs::remove(folder.path("a"));
  EXPECT_FALSE(reopen_file(output, "a", created).is_open());
  EXPECT_FALSE(folder.exists("a"));
}

TEST_F(OutputFile, IsNotReopenedWhenAnotherFileTookItsPlace) {
  const created_file created = create_with("a", "one");
  fs::rename(folder.path("a"), folder.path("moved"));
  folder.write("a", "two");
  EXPECT_FALSE(reopen_file(output, "a", created).is_open());
}

TEST_F(OutputFile, IsNotReopenedWhenAnotherFileGotItsInode) {
  const created_file created = create_with("a", "one");
  fs::remove(folder.path("a"));
  folder.write("a", "another");
  EXPECT_FALSE(reopen_file(output, "a", created).is_open());
  EXPECT_EQ(folder.read("a"), "another");
}

TEST_F(OutputFile, IsNotReopenedOnceItHasAnotherName) {
  const created_file created = create_with("a", "one");
  fs::create_hard_link(folder.path("a"), folder.path("other"));
  EXPECT_FALSE(reopen_file(output, "a", created).is_open());
}

TEST_F(OutputFile, IsNotReopenedThroughASymbolicLink) {
  const created_file created = create_with("a", "one");
  fs::rename(folder.path("a"), folder.path("moved"));
  fs::create_symlink("moved", folder.path("a"));
  EXPECT_FALSE(reopen_file(output, "a", created).is_open());
}

TEST_F(OutputFile, RemovesALinkAndNotItsTarget) {
  folder.write("other", "content");
  fs::create_symlink("other", folder.path("a"));
  EXPECT_TRUE(remove_file(output, "a", kept));
  EXPECT_FALSE(folder.exists("a"));
  EXPECT_EQ(folder.read("other"), "content");
}

}  // namespace
}  // namespace morvane

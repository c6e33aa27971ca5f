#include "inspect/parse_folder.h"

#include <gtest/gtest.h>

#include "harness/scratch_folder.h"
#include "printed_text.h"

namespace morvane {
namespace {

using test::printed_by;
using test::scratch_folder;

void write(const file_handle& file, std::string_view text) {
  write_bytes(file, std::as_bytes(std::span(text)));
}

TEST(ParseFolder, IsMadeInTheParseDirectory) {
  const scratch_folder folder;
  EXPECT_EQ(make_parse_folder(folder.path()), folder.path() + "/parse");
  EXPECT_TRUE(std::filesystem::is_directory(folder.path("parse")));
}

TEST(ParseFolder, KeepsTheSlashAtTheEndOfTheParseDirectory) {
  const scratch_folder folder;
  EXPECT_EQ(make_parse_folder(folder.path() + "/"), folder.path() + "//parse");
  EXPECT_TRUE(std::filesystem::is_directory(folder.path("parse")));
}

TEST(ParseFolder, MayExist) {
  const scratch_folder folder;
  folder.write("parse/kept", "content");
  EXPECT_EQ(printed_by([&] { make_parse_folder(folder.path()); }), "");
  EXPECT_EQ(folder.read("parse/kept"), "content");
}

TEST(ParseFolder, IsNotMadeInAMissingDirectory) {
  const scratch_folder folder;
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(make_parse_folder(folder.path("missing")), folder.path("missing/parse"));
            }),
            "");
  EXPECT_FALSE(folder.exists("missing"));
}

TEST(FileInFolder, IsFolderSlashName) {
  EXPECT_EQ(file_in_folder(".//parse", "net.dvi").path, ".//parse/net.dvi");
  EXPECT_TRUE(file_in_folder(".//parse", "net.dvi").in_folder);
}

TEST(FileInFolder, IsNotInTheFolderWithASlashInItsName) {
  EXPECT_EQ(file_in_folder("parse", "_../net.h").path, "parse/_../net.h");
  EXPECT_FALSE(file_in_folder("parse", "_../net.h").in_folder);
}

TEST(CreateParsedFile, EmptiesTheFile) {
  const scratch_folder folder;
  folder.write("net.dvi", "longer");
  write(create_parsed_file(file_in_folder(folder.path(), "net.dvi")), "new");
  EXPECT_EQ(folder.read("net.dvi"), "new");
}

TEST(CreateParsedFile, ReportsAFileThatCannotBeCreated) {
  EXPECT_EQ(printed_by([] {
              EXPECT_FALSE(create_parsed_file(file_in_folder("missing", "net.dvi")).is_open());
            }),
            "can't open file missing/net.dvi\n");
}

TEST(AppendToParsedFile, WritesAtTheEndOfTheFile) {
  const scratch_folder folder;
  const parsed_file header = file_in_folder(folder.path(), "_net.h");
  write(append_to_parsed_file(header), "one ");
  write(append_to_parsed_file(header), "two");
  EXPECT_EQ(folder.read("_net.h"), "one two");
}

TEST(AppendToParsedFile, ReportsAFileThatCannotBeOpened) {
  EXPECT_EQ(printed_by([] {
              EXPECT_FALSE(append_to_parsed_file(file_in_folder("missing", "_net.h")).is_open());
            }),
            "can't open file missing/_net.h\n");
}

TEST(RemoveParsedFile, DeletesTheFileIfItIsThere) {
  const scratch_folder folder;
  folder.write("_net.h", "old");
  remove_parsed_file(file_in_folder(folder.path(), "_net.h"));
  EXPECT_FALSE(folder.exists("_net.h"));
  EXPECT_EQ(printed_by([&] { remove_parsed_file(file_in_folder(folder.path(), "_net.h")); }), "");
}

TEST(ParsedFiles, OfANameWithASlashAreNeverTouched) {
  const scratch_folder folder;
  folder.write("outside.dvi", "kept");
  folder.make_folder("parse");
  const parsed_file file = file_in_folder(folder.path("parse"), "../outside.dvi");
  const std::string message = "can't open file " + folder.path("parse") + "/../outside.dvi\n";
  EXPECT_EQ(printed_by([&] { EXPECT_FALSE(create_parsed_file(file).is_open()); }), message);
  EXPECT_EQ(printed_by([&] { EXPECT_FALSE(append_to_parsed_file(file).is_open()); }), message);
  EXPECT_EQ(printed_by([&] { remove_parsed_file(file); }), "");
  EXPECT_EQ(folder.read("outside.dvi"), "kept");
}

}  // namespace
}  // namespace morvane

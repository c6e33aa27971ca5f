#include "inspect/parse_folder.h"

#include <gtest/gtest.h>

#include "harness/scratch_folder.h"
#include "printed_text.h"
#include "unit/written_text.h"

namespace morvane {
namespace {

using test::printed_by;
using test::scratch_folder;
using test::write_text;

TEST(ParseFolder, IsMadeInTheParseDirectory) {
  const scratch_folder folder;
  EXPECT_EQ(make_parse_folder(folder.path(), {}).path, folder.path() + "/parse");
  EXPECT_TRUE(std::filesystem::is_directory(folder.path("parse")));
}

TEST(ParseFolder, KeepsTheSlashAtTheEndOfTheParseDirectory) {
  const scratch_folder folder;
  EXPECT_EQ(make_parse_folder(folder.path() + "/", {}).path, folder.path() + "//parse");
  EXPECT_TRUE(std::filesystem::is_directory(folder.path("parse")));
}

TEST(ParseFolder, MayExist) {
  const scratch_folder folder;
  folder.write("parse/kept", "content");
  EXPECT_EQ(printed_by([&] { make_parse_folder(folder.path(), {}); }), "");
  EXPECT_EQ(folder.read("parse/kept"), "content");
}

TEST(ParseFolder, MayBeALinkToAFolder) {
  const scratch_folder folder;
  folder.make_folder("elsewhere");
  std::filesystem::create_symlink("elsewhere", folder.path("parse"));
  write_text(create_image(make_parse_folder(folder.path(), {}), "net"), "image");
  EXPECT_EQ(folder.read("elsewhere/net.dvi"), "image");
}

TEST(ParseFolder, IsNotMadeInAMissingDirectory) {
  const scratch_folder folder;
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(make_parse_folder(folder.path("missing"), {}).path,
                        folder.path("missing/parse"));
            }),
            "");
  EXPECT_FALSE(folder.exists("missing"));
}

class FilesOfTheParseFolder : public testing::Test {
 protected:
  scratch_folder folder;
  parse_folder output{.path = "DIR", .handle = open_folder(folder.path())};
  parse_folder missing{.path = "missing"};
};

TEST_F(FilesOfTheParseFolder, AnImageTakesThePlaceOfAnOlderOne) {
  folder.write("net.dvi", "longer");
  write_text(create_image(output, "net"), "new");
  EXPECT_EQ(folder.read("net.dvi"), "new");
}

TEST_F(FilesOfTheParseFolder, AnImageThatCannotBeCreatedIsReported) {
  EXPECT_EQ(printed_by([&] { EXPECT_FALSE(create_image(missing, "net").is_open()); }),
            "can't open file missing/net.dvi\n");
}

TEST_F(FilesOfTheParseFolder, AHeaderGrowsAtItsEnd) {
  EXPECT_EQ(append_to_header(output, "net", "one\n"), 0);
  EXPECT_EQ(append_to_header(output, "net", ""), 0);
  EXPECT_EQ(append_to_header(output, "net", "two\n"), 0);
  EXPECT_EQ(folder.read("_net.h"), "one\ntwo\n");
}

TEST_F(FilesOfTheParseFolder, AHeaderBeginsAnewWithEachFolder) {
  folder.write("_net.h", "old");
  EXPECT_EQ(append_to_header(output, "net", "new\n"), 0);
  EXPECT_EQ(folder.read("_net.h"), "new\n");
}

TEST_F(FilesOfTheParseFolder, AHeaderThatCannotBeOpenedIsReported) {
  EXPECT_EQ(printed_by([&] { EXPECT_EQ(append_to_header(missing, "net", "one\n"), -1); }),
            "can't open file missing/_net.h\n");
}

TEST_F(FilesOfTheParseFolder, AHeaderThatAnotherFileReplacedIsReportedAndLeftAlone) {
  EXPECT_EQ(append_to_header(output, "net", "one\n"), 0);
  std::filesystem::rename(folder.path("_net.h"), folder.path("moved"));
  folder.write("_net.h", "new\n");
  EXPECT_EQ(printed_by([&] { EXPECT_EQ(append_to_header(output, "net", "two\n"), -1); }),
            "can't open file DIR/_net.h\n");
  EXPECT_EQ(folder.read("_net.h"), "new\n");
  EXPECT_EQ(folder.read("moved"), "one\n");
}

TEST_F(FilesOfTheParseFolder, AHeaderIsRemovedIfItExists) {
  folder.write("_net.h", "old");
  remove_header(output, "net");
  EXPECT_FALSE(folder.exists("_net.h"));
  EXPECT_EQ(printed_by([&] { remove_header(output, "net"); }), "");
}

TEST_F(FilesOfTheParseFolder, ThePackageIsNoOutput) {
  folder.write("net.dvi", "the package");
  std::filesystem::create_hard_link(folder.path("net.dvi"), folder.path("_net.h"));
  output.package = *identity_at(folder.path("net.dvi"));
  remove_header(output, "net");
  EXPECT_EQ(printed_by([&] { EXPECT_FALSE(create_image(output, "net").is_open()); }),
            "can't open file DIR/net.dvi\n");
  EXPECT_EQ(printed_by([&] { EXPECT_EQ(append_to_header(output, "net", "one\n"), -1); }),
            "can't open file DIR/_net.h\n");
  EXPECT_EQ(folder.read("net.dvi"), "the package");
  EXPECT_EQ(folder.read("_net.h"), "the package");
}

TEST_F(FilesOfTheParseFolder, ANameWithASlashIsNeverReached) {
  folder.write("net.dvi", "kept");
  folder.write("net.h", "kept");
  folder.make_folder("_");
  EXPECT_EQ(printed_by([&] { EXPECT_FALSE(create_image(output, "_/../net").is_open()); }),
            "can't open file DIR/_/../net.dvi\n");
  EXPECT_EQ(printed_by([&] { EXPECT_EQ(append_to_header(output, "/../net", ""), -1); }),
            "can't open file DIR/_/../net.h\n");
  remove_header(output, "/../net");
  EXPECT_EQ(folder.read("net.dvi"), "kept");
  EXPECT_EQ(folder.read("net.h"), "kept");
}

}  // namespace
}  // namespace morvane

// The parse folder: what an inspection makes, replaces and does not touch, and its messages if it
// cannot write.
#include <sys/stat.h>

#include <filesystem>

#include "end_to_end/inspection_output.h"
#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

const std::vector<std::string> inspect_here = {"-f", "net.bin", "-v"};

const dvi_fields net = {.img_size = 5, .dag_name = "net"};
const std::string net_package = package_header(1) + dvi_record(net) + "image";
const std::string net_header = dag_block(net);

using ParseFolder = tool_test;

TEST_F(ParseFolder, IsMadeWithTheModeThatTheUmaskLeaves) {
  folder.write("net.bin", net_package);
  const mode_t old_mask = ::umask(027);
  tool(inspect_here);
  ::umask(old_mask);
  EXPECT_EQ(std::filesystem::status(folder.path("parse")).permissions(),
            std::filesystem::perms{0750});
}

TEST_F(ParseFolder, OldImagesAndHeadersAreReplacedAndOtherFilesKept) {
  folder.write("net.bin", net_package);
  folder.write("parse/net.dvi", "an older and longer image");
  folder.write("parse/_net.h", "#define\told\t1\n");
  folder.write("parse/_other.h", "other");
  tool(inspect_here);
  expect_files(folder.files("parse"),
               {{"net.dvi", "image"}, {"_net.h", net_header}, {"_other.h", "other"}});
}

TEST_F(ParseFolder, MayBeALinkToAFolderElsewhere) {
  folder.write("net.bin", net_package);
  folder.make_folder("elsewhere");
  std::filesystem::create_symlink("elsewhere", folder.path("parse"));
  EXPECT_EQ(tool(inspect_here).status, 1);
  expect_files(folder.files("elsewhere"), {{"net.dvi", "image"}, {"_net.h", net_header}});
}

/// What the tool prints when the image, or the header, of net_package cannot be written.
std::string image_lost() {
  return report_begin({net}) + "can't open file .//parse/net.dvi\n" + failed_report_end();
}

const std::string no_net_header = "can't open file .//parse/_net.h\n";

std::string header_lost() {
  return first_line(1) + "\n" + table_line(net) + no_net_header + "\n" + heading(net) +
         no_net_header + no_net_header + "\n" + report_end();
}

using PackageInTheParseFolder = tool_test;

TEST_F(PackageInTheParseFolder, InThePlaceOfAnImageKeepsEveryByte) {
  folder.write("parse/net.dvi", net_package);
  expect_tool({"-f", "parse/net.dvi", "-v"}, 1, image_lost());
  expect_files(folder.files("parse"), {{"net.dvi", net_package}, {"_net.h", net_header}});
}

TEST_F(PackageInTheParseFolder, InThePlaceOfAHeaderKeepsEveryByte) {
  folder.write("parse/_net.h", net_package);
  expect_tool({"-f", "parse/_net.h", "-v"}, 1, header_lost());
  expect_files(folder.files("parse"), {{"net.dvi", "image"}, {"_net.h", net_package}});
}

TEST_F(PackageInTheParseFolder, AsAHardLinkInThePlaceOfAnOutputKeepsEveryByte) {
  folder.write("net.bin", net_package);
  folder.make_folder("parse");
  std::filesystem::create_hard_link(folder.path("net.bin"), folder.path("parse/net.dvi"));
  expect_tool(inspect_here, 1, image_lost());
  expect_files(
      folder.files(),
      {{"net.bin", net_package}, {"parse/net.dvi", net_package}, {"parse/_net.h", net_header}});
}

TEST_F(PackageInTheParseFolder, ReachedThroughALinkInThePlaceOfAnOutputIsOnlyUnlinked) {
  folder.write("net.bin", net_package);
  folder.make_folder("parse");
  std::filesystem::create_symlink("../net.bin", folder.path("parse/net.dvi"));
  std::filesystem::create_symlink("../net.bin", folder.path("parse/_net.h"));
  EXPECT_EQ(tool(inspect_here).status, 1);
  expect_files(
      folder.files(),
      {{"net.bin", net_package}, {"parse/net.dvi", "image"}, {"parse/_net.h", net_header}});
}

TEST_F(PackageInTheParseFolder, ThatIsNamedByALinkInThePlaceOfAnOutputKeepsEveryByte) {
  folder.write("net.bin", net_package);
  folder.make_folder("parse");
  std::filesystem::create_symlink("../net.bin", folder.path("parse/net.dvi"));
  EXPECT_EQ(tool({"-f", "parse/net.dvi", "-v"}).status, 1);
  expect_files(
      folder.files(),
      {{"net.bin", net_package}, {"parse/net.dvi", "image"}, {"parse/_net.h", net_header}});
}

TEST_F(PackageInTheParseFolder, ThatWasJustPackedKeepsEveryByte) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h", "#define net_DAG_NAME net\n#define net_image_size 5\n");
  folder.make_folder("parse");
  EXPECT_EQ(tool({"-d", "in", "-f", "parse/net.dvi", "-v"}).status, 0);
  EXPECT_EQ(folder.read("parse/net.dvi").size(), 12U + 156U + 5U);
  EXPECT_EQ(folder.read("parse/_net.h"), net_header);
}

TEST_F(ParseFolder, DvisOfOneNameShareTheirFiles) {
  const dvi_fields second = {.dvi_id = 1, .img_size = 3, .dag_name = "net"};
  folder.write("net.bin", package_header(2) + dvi_record(net) + dvi_record(second) + "firstlot");
  EXPECT_EQ(tool(inspect_here).status, 1);
  expect_files(folder.files("parse"),
               {{"net.dvi", "lot"}, {"_net.h", net_header + dag_block(second)}});
}

TEST_F(ParseFolder, NothingAboveItIsMade) {
  folder.write("net.bin", net_package);
  const std::string lost_there = "can't open file missing/parse/_net.h\n";
  expect_tool({"-f", "net.bin", "-v", "-p", "missing"}, 1,
              first_line(1) + "\n" + table_line(net) + lost_there + "\n" + heading(net) +
                  lost_there + lost_there + "\ncan't open file missing/parse/net.dvi\n" +
                  failed_report_end("missing"));
  expect_files(folder.files(), {{"net.bin", net_package}});
}

TEST_F(ParseFolder, EveryBlockWriterReportsAMissingFolder) {
  folder.write("parse", "a file in its place");
  const dvi_fields dvi = {.input_num = 1, .dag_name = "net"};
  folder.write("net.bin", package_header(1) + dvi_record(dvi) + port_record({.port_name = "a"}) +
                              vproc_record(1, 1, 0) + variable_record("x", 1, 2) +
                              smb_record("s", 3));
  expect_tool(
      {"-f", "net.bin", "-v", "-c"}, 1,
      first_line(1) + "\n" + table_line(dvi) + no_net_header + "\n" + heading(dvi) +
          "input_id: 0\t port_size: 0\t port_byte_offset: 0\t bitvector: 0\t dim: (P, D, H, W) = "
          "( 0, 0, 0, 0)\tpitch: 0\tdram_format: 0\tdata_format: (255, 255, -1, 255)\t"
          "port rotate bit (p, d, v, h, r): (0, 0, 0, 0, 0)\t"
          "port rotate offset(p, d, v, h, r): (0, 0, 0, 0, 0)\tport_name: a\t\n" +
          no_net_header + no_net_header +
          "\n"
          "can't open file .//parse/net.dvi\n"
          "vproc_id: 0 dag_name: net variable_num: 1 smb_num: 1\n"
          "\n"
          "var: x\t boffset = 1\t bsize = 2\n" +
          no_net_header + "\nsmb_id: 0\t vbase_byte_offset: 3\t smb_name: s\n" + no_net_header +
          "\n" + failed_report_end());
  EXPECT_EQ(folder.read("parse"), "a file in its place");
}

TEST_F(ParseFolder, AHeaderThatCannotBeWrittenDoesNotChangeTheLastLine) {
  folder.write("net.bin", net_package);
  folder.write("parse/_net.h/inner", "kept");
  expect_tool(inspect_here, 1, header_lost());
  EXPECT_EQ(folder.read("parse/net.dvi"), "image");
  EXPECT_EQ(folder.read("parse/_net.h/inner"), "kept");
}

TEST_F(ParseFolder, AnImageThatCannotBeCreatedIsSkipped) {
  const dvi_fields big = {.img_size = 300000, .dag_name = "big"};
  const dvi_fields next = {.dvi_id = 1, .img_size = 3, .dag_name = "net"};
  folder.write("net.bin", package_header(2) + dvi_record(big) + dvi_record(next) +
                              std::string(300000, 'i') + "net");
  folder.make_folder("parse/big.dvi");
  expect_tool(inspect_here, 1,
              first_line(2) + "\n" + table_line(big) + table_line(next) + "\n" + heading(big) +
                  "\ncan't open file .//parse/big.dvi\n" + heading(next) + "\n" +
                  failed_report_end());
  EXPECT_EQ(folder.read("parse/net.dvi"), "net");
}

}  // namespace
}  // namespace morvane::test

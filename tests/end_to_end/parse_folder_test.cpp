// The parse folder: what an inspection makes, replaces and does not touch, and its messages if it
// cannot write.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "end_to_end/expectations.h"
#include "end_to_end/package_records.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

const std::vector<std::string> inspect_here = {"-f", "net.bin", "-v"};

const std::string net_package =
    package_header(1) + dvi_record({.img_size = 5, .dag_name = "net"}) + "image";

constexpr const char* net_header =
    "#define\tnet_DAG_NAME\t\"net\"\n"
    "#define\tnet_use_ping_pong_vmem\t0\n"
    "#define\tnet_image_start\t0\n"
    "#define\tnet_image_size\t5\n"
    "#define\tnet_dagbin_start\t0\n";

/// The line in the table for a DVI with only an index, an image size and a name.
std::string table_line_of(const std::string& index, const std::string& size,
                          const std::string& name) {
  return "dvi_id: " + index + "\t dvi_img_vaddr: 0\t dvi_img_size: " + size +
         "\t dvi_dag_vaddr: 0\t input_num: 0\t output_num: 0\t dvi_pkg_size: 0\t dvi_ppv: 0\t "
         "vproc_id: 0\t dag_name: " +
         name + "\n";
}

constexpr const char* version_line = "version 2.1.6 ( HASH b3b3814 ) dvi_num: 1\n\n";
constexpr const char* dvi_heading = "dvi_id: 0 dag_name: net input_num: 0 output_num: 0\n";

TEST(ParseFolder, IsMadeWithTheModeThatTheUmaskLeaves) {
  const scratch_folder folder;
  folder.write("net.bin", net_package);
  const mode_t old_mask = ::umask(027);
  run_tool(inspect_here, folder.path());
  ::umask(old_mask);
  EXPECT_EQ(std::filesystem::status(folder.path("parse")).permissions(),
            std::filesystem::perms{0750});
}

TEST(ParseFolder, ASecondInspectionGivesTheSameFiles) {
  const scratch_folder folder;
  folder.write("net.bin", net_package);
  const run_result first = run_tool(inspect_here, folder.path());
  expect_run(run_tool(inspect_here, folder.path()), 1, first.output);
  expect_files(folder.files("parse"), {{"net.dvi", "image"}, {"_net.h", net_header}});
}

TEST(ParseFolder, OldImagesAndHeadersAreReplacedAndOtherFilesKept) {
  const scratch_folder folder;
  folder.write("net.bin", net_package);
  folder.write("parse/net.dvi", "an older and longer image");
  folder.write("parse/_net.h", "#define\told\t1\n");
  folder.write("parse/_other.h", "other");
  run_tool(inspect_here, folder.path());
  expect_files(folder.files("parse"),
               {{"net.dvi", "image"}, {"_net.h", net_header}, {"_other.h", "other"}});
}

TEST(ParseFolder, LinksThatStandInItAreReplacedAndTheirFilesKept) {
  const scratch_folder folder;
  folder.write("net.bin", net_package);
  folder.write("outside.dvi", "outside");
  folder.write("outside.h", "outside");
  folder.make_folder("parse");
  std::filesystem::create_symlink("../outside.dvi", folder.path("parse/net.dvi"));
  std::filesystem::create_hard_link(folder.path("outside.h"), folder.path("parse/_net.h"));
  expect_run(run_tool(inspect_here, folder.path()), 1,
             version_line + table_line_of("0", "5", "net") + "\n" + dvi_heading +
                 "\n"
                 ".dvi files are parsed to folder .//parse\n"
                 "\n");
  EXPECT_FALSE(std::filesystem::is_symlink(folder.path("parse/net.dvi")));
  expect_files(folder.files(), {{"net.bin", net_package},
                                {"outside.dvi", "outside"},
                                {"outside.h", "outside"},
                                {"parse/net.dvi", "image"},
                                {"parse/_net.h", net_header}});
}

TEST(ParseFolder, MayBeALinkToAFolderElsewhere) {
  const scratch_folder folder;
  folder.write("net.bin", net_package);
  folder.make_folder("elsewhere");
  std::filesystem::create_symlink("elsewhere", folder.path("parse"));
  EXPECT_EQ(run_tool(inspect_here, folder.path()).status, 1);
  expect_files(folder.files("elsewhere"), {{"net.dvi", "image"}, {"_net.h", net_header}});
}

/// What the tool prints when only the image cannot be written.
std::string image_lost() {
  return version_line + table_line_of("0", "5", "net") + "\n" + dvi_heading +
         "\n"
         "can't open file .//parse/net.dvi\n"
         "error: fail to save parsed .dvi files to folder .//parse\n"
         "\n";
}

/// What the tool prints when only the header cannot be written.
std::string header_lost() {
  return version_line + table_line_of("0", "5", "net") +
         "can't open file .//parse/_net.h\n"
         "\n" +
         dvi_heading +
         "can't open file .//parse/_net.h\n"
         "can't open file .//parse/_net.h\n"
         "\n"
         ".dvi files are parsed to folder .//parse\n"
         "\n";
}

TEST(PackageInTheParseFolder, InThePlaceOfAnImageKeepsEveryByte) {
  const scratch_folder folder;
  folder.write("parse/net.dvi", net_package);
  expect_run(run_tool({"-f", "parse/net.dvi", "-v"}, folder.path()), 1, image_lost());
  expect_files(folder.files("parse"), {{"net.dvi", net_package}, {"_net.h", net_header}});
}

TEST(PackageInTheParseFolder, InThePlaceOfAHeaderKeepsEveryByte) {
  const scratch_folder folder;
  folder.write("parse/_net.h", net_package);
  expect_run(run_tool({"-f", "parse/_net.h", "-v"}, folder.path()), 1, header_lost());
  expect_files(folder.files("parse"), {{"net.dvi", "image"}, {"_net.h", net_package}});
}

TEST(PackageInTheParseFolder, AsAHardLinkInThePlaceOfAnOutputKeepsEveryByte) {
  const scratch_folder folder;
  folder.write("net.bin", net_package);
  folder.make_folder("parse");
  std::filesystem::create_hard_link(folder.path("net.bin"), folder.path("parse/net.dvi"));
  expect_run(run_tool(inspect_here, folder.path()), 1, image_lost());
  expect_files(
      folder.files(),
      {{"net.bin", net_package}, {"parse/net.dvi", net_package}, {"parse/_net.h", net_header}});
}

TEST(PackageInTheParseFolder, ReachedThroughALinkInThePlaceOfAnOutputIsOnlyUnlinked) {
  const scratch_folder folder;
  folder.write("net.bin", net_package);
  folder.make_folder("parse");
  std::filesystem::create_symlink("../net.bin", folder.path("parse/net.dvi"));
  std::filesystem::create_symlink("../net.bin", folder.path("parse/_net.h"));
  EXPECT_EQ(run_tool(inspect_here, folder.path()).status, 1);
  expect_files(
      folder.files(),
      {{"net.bin", net_package}, {"parse/net.dvi", "image"}, {"parse/_net.h", net_header}});
}

TEST(PackageInTheParseFolder, ThatIsNamedByALinkInThePlaceOfAnOutputKeepsEveryByte) {
  const scratch_folder folder;
  folder.write("net.bin", net_package);
  folder.make_folder("parse");
  std::filesystem::create_symlink("../net.bin", folder.path("parse/net.dvi"));
  EXPECT_EQ(run_tool({"-f", "parse/net.dvi", "-v"}, folder.path()).status, 1);
  expect_files(
      folder.files(),
      {{"net.bin", net_package}, {"parse/net.dvi", "image"}, {"parse/_net.h", net_header}});
}

TEST(PackageInTheParseFolder, ThatWasJustPackedKeepsEveryByte) {
  const scratch_folder folder;
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h", "#define net_DAG_NAME net\n#define net_image_size 5\n");
  folder.make_folder("parse");
  EXPECT_EQ(run_tool({"-d", "in", "-f", "parse/net.dvi", "-v"}, folder.path()).status, 0);
  EXPECT_EQ(folder.read("parse/net.dvi").size(), 12U + 156U + 5U);
  EXPECT_EQ(folder.read("parse/_net.h"), net_header);
}

TEST(ParseFolder, DvisOfOneNameShareTheirFiles) {
  const scratch_folder folder;
  folder.write("net.bin", package_header(2) + dvi_record({.img_size = 5, .dag_name = "net"}) +
                              dvi_record({.dvi_id = 1, .img_size = 3, .dag_name = "net"}) +
                              "firstlot");
  EXPECT_EQ(run_tool(inspect_here, folder.path()).status, 1);
  expect_files(folder.files("parse"),
               {{"net.dvi", "lot"},
                {"_net.h", std::string(net_header) + "#define\tnet_DAG_NAME\t\"net\"\n"
                                                     "#define\tnet_use_ping_pong_vmem\t0\n"
                                                     "#define\tnet_image_start\t0\n"
                                                     "#define\tnet_image_size\t3\n"
                                                     "#define\tnet_dagbin_start\t0\n"}});
}

TEST(ParseFolder, ADviWithoutNameIsWrittenAllTheSame) {
  const scratch_folder folder;
  folder.write("net.bin", package_header(1) + dvi_record({.img_size = 5}) + "image");
  EXPECT_EQ(run_tool(inspect_here, folder.path()).status, 1);
  expect_files(folder.files("parse"), {{".dvi", "image"},
                                       {"_.h",
                                        "#define\t_DAG_NAME\t\"\"\n"
                                        "#define\t_use_ping_pong_vmem\t0\n"
                                        "#define\t_image_start\t0\n"
                                        "#define\t_image_size\t5\n"
                                        "#define\t_dagbin_start\t0\n"}});
}

TEST(ParseFolder, NothingAboveItIsMade) {
  const scratch_folder folder;
  folder.write("net.bin", net_package);
  expect_run(run_tool({"-f", "net.bin", "-v", "-p", "missing"}, folder.path()), 1,
             version_line + table_line_of("0", "5", "net") +
                 "can't open file missing/parse/_net.h\n"
                 "\n" +
                 dvi_heading +
                 "can't open file missing/parse/_net.h\n"
                 "can't open file missing/parse/_net.h\n"
                 "\n"
                 "can't open file missing/parse/net.dvi\n"
                 "error: fail to save parsed .dvi files to folder missing/parse\n"
                 "\n");
  expect_files(folder.files(), {{"net.bin", net_package}});
}

TEST(ParseFolder, EveryBlockWriterReportsAMissingFolder) {
  const scratch_folder folder;
  folder.write("parse", "a file in its place");
  folder.write("net.bin", package_header(1) + dvi_record({.input_num = 1, .dag_name = "net"}) +
                              port_record({.port_name = "a"}) + vproc_record(1, 1, 0) +
                              variable_record("x", 1, 2) + smb_record("s", 3));
  expect_run(
      run_tool({"-f", "net.bin", "-v", "-c"}, folder.path()), 1,
      std::string(version_line) +
          "dvi_id: 0\t dvi_img_vaddr: 0\t dvi_img_size: 0\t dvi_dag_vaddr: 0\t input_num: 1\t "
          "output_num: 0\t dvi_pkg_size: 0\t dvi_ppv: 0\t vproc_id: 0\t dag_name: net\n"
          "can't open file .//parse/_net.h\n"
          "\n"
          "dvi_id: 0 dag_name: net input_num: 1 output_num: 0\n"
          "input_id: 0\t port_size: 0\t port_byte_offset: 0\t bitvector: 0\t dim: (P, D, H, W) = "
          "( 0, 0, 0, 0)\tpitch: 0\tdram_format: 0\tdata_format: (255, 255, -1, 255)\t"
          "port rotate bit (p, d, v, h, r): (0, 0, 0, 0, 0)\t"
          "port rotate offset(p, d, v, h, r): (0, 0, 0, 0, 0)\tport_name: a\t\n"
          "can't open file .//parse/_net.h\n"
          "can't open file .//parse/_net.h\n"
          "\n"
          "can't open file .//parse/net.dvi\n"
          "vproc_id: 0 dag_name: net variable_num: 1 smb_num: 1\n"
          "\n"
          "var: x\t boffset = 1\t bsize = 2\n"
          "can't open file .//parse/_net.h\n"
          "\n"
          "smb_id: 0\t vbase_byte_offset: 3\t smb_name: s\n"
          "can't open file .//parse/_net.h\n"
          "\n"
          "error: fail to save parsed .dvi files to folder .//parse\n"
          "\n");
  EXPECT_EQ(folder.read("parse"), "a file in its place");
}

TEST(ParseFolder, AHeaderThatCannotBeWrittenDoesNotChangeTheLastLine) {
  const scratch_folder folder;
  folder.write("net.bin", net_package);
  folder.write("parse/_net.h/inner", "a folder in its place, not empty");
  expect_run(run_tool(inspect_here, folder.path()), 1,
             version_line + table_line_of("0", "5", "net") +
                 "can't open file .//parse/_net.h\n"
                 "\n" +
                 dvi_heading +
                 "can't open file .//parse/_net.h\n"
                 "can't open file .//parse/_net.h\n"
                 "\n"
                 ".dvi files are parsed to folder .//parse\n"
                 "\n");
  EXPECT_EQ(folder.read("parse/net.dvi"), "image");
}

TEST(ParseFolder, AnImageThatCannotBeCreatedIsSkipped) {
  const scratch_folder folder;
  folder.write("net.bin", package_header(2) + dvi_record({.img_size = 300000, .dag_name = "big"}) +
                              dvi_record({.dvi_id = 1, .img_size = 3, .dag_name = "net"}) +
                              std::string(300000, 'i') + "net");
  folder.make_folder("parse/big.dvi");
  expect_run(run_tool(inspect_here, folder.path()), 1,
             "version 2.1.6 ( HASH b3b3814 ) dvi_num: 2\n\n" + table_line_of("0", "300000", "big") +
                 table_line_of("1", "3", "net") +
                 "\n"
                 "dvi_id: 0 dag_name: big input_num: 0 output_num: 0\n"
                 "\n"
                 "can't open file .//parse/big.dvi\n"
                 "dvi_id: 1 dag_name: net input_num: 0 output_num: 0\n"
                 "\n"
                 "error: fail to save parsed .dvi files to folder .//parse\n"
                 "\n");
  EXPECT_EQ(folder.read("parse/net.dvi"), "net");
}

}  // namespace
}  // namespace morvane::test

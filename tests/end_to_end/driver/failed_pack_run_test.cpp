// Pack runs that fail: the message, and the incomplete package that stays on disk.
#include <filesystem>

#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

constexpr const char* nothing_found = "error: can't find matched .dvi files and .h files\n";

// A header with one input and one output port, and the package up to the end of its DVI's block, if
// a second DVI without ports follows.
const std::string first_header =
    dag_lines("first", 3) + "/* first HMB_input a */\n/* first HMB_output b */\n";
const std::string first_dvi = dvi_record(
    {.img_size = 3, .input_num = 1, .output_num = 1, .pkg_size = 2163, .dag_name = "first"});
const std::string first_block =
    port_record({.port_name = "a"}) + port_record({.port_name = "b"}) + "one";

using FailedPackRun = tool_test;

TEST_F(FailedPackRun, NoFolder) {
  expect_tool(pack, 255, nothing_found);
  EXPECT_FALSE(folder.exists("net.bin"));
}

TEST_F(FailedPackRun, AFileInPlaceOfTheFolder) {
  folder.write("in", "");
  expect_tool(pack, 255, nothing_found);
  expect_tool({"-d", "", "-f", "net.bin"}, 255, nothing_found);
  EXPECT_FALSE(folder.exists("net.bin"));
}

TEST_F(FailedPackRun, LeavesAnExistingPackageAloneWhenTheInputIsWrong) {
  folder.write("net.bin", "earlier package");
  folder.write("in/net.dvi", "");
  expect_tool(pack, 255,
              std::string("error: can't find file net.h. please check filename format "
                          "between .dvi and .h files.\n") +
                  counts_differ);
  EXPECT_EQ(folder.read("net.bin"), "earlier package");
}

TEST_F(FailedPackRun, APackageThatCannotBeCreated) {
  put_dag("net", dag_lines("net"));
  folder.make_folder("net.bin");
  expect_tool(pack, 255, "error: can't open file net.bin\n");
  expect_tool({"-d", "in", "-f", "missing/net.bin"}, 255,
              "error: can't open file missing/net.bin\n");
  expect_tool({"-d", "in", "-f", ""}, 255, "error: can't open file \n");
  EXPECT_FALSE(folder.exists("missing"));
}

TEST_F(FailedPackRun, IsNotInspected) {
  put_dag("net", dag_lines("net", 6), "image");
  expect_tool({"-d", "in", "-v"}, 255, no_ports + "error: fail to read 6 bytes from in/net.dvi\n");
  expect_tool({"-d", "out", "-v"}, 255, nothing_found);
  EXPECT_FALSE(folder.exists("parse"));
}

TEST_F(FailedPackRun, AnImageThatIsTooShortLeavesTheBlocksBeforeIt) {
  put_dag("net_split_0", first_header, "one");
  put_dag("net_split_1", dag_lines("second", 4) + "/* HMB_input c */\n", "two");
  expect_tool(pack_with_vproc, 255,
              "warning: fail to find HMB output info in in/_net_split_1.h\n"
              "error: fail to read 4 bytes from in/net_split_1.dvi\n");
  expect_bytes(folder.read("net.bin"), package_header(2) + first_dvi +
                                           dvi_record({.dvi_id = 1,
                                                       .vproc_id = 1,
                                                       .img_size = 4,
                                                       .input_num = 1,
                                                       .pkg_size = 1084,
                                                       .dag_name = "second"}) +
                                           first_block + port_record({.port_name = "c"}));
}

TEST_F(FailedPackRun, AnImageOfNegativeSize) {
  put_dag("net", dag_lines("net") + "#define net_image_size -1\n/* HMB_input a */\n", "image");
  expect_tool(pack, 255,
              "warning: fail to find HMB output info in in/_net.h\n"
              "error: fail to read -1 bytes from in/net.dvi\n");
  expect_bytes(
      folder.read("net.bin"),
      package_header(1) +
          dvi_record(
              {.img_size = 0xFFFFFFFF, .input_num = 1, .pkg_size = 1079, .dag_name = "net"}) +
          port_record({.port_name = "a"}));
}

TEST_F(FailedPackRun, AnImageSizeBeyondTwoGigabytesIsNegative) {
  put_dag("net", "#define net_DAG_NAME net\n#define net_image_size 2147483648\n", "image");
  expect_tool(pack, 255, no_ports + "error: fail to read -2147483648 bytes from in/net.dvi\n");
}

TEST_F(FailedPackRun, AnImageThatCannotBeOpened) {
  put_dag("net_split_0", first_header, "one");
  folder.write("in/_net_split_1.h", dag_lines("second", 3));
  std::filesystem::create_symlink("nowhere", folder.path("in/net_split_1.dvi"));
  expect_tool(pack, 255, no_ports_in("_net_split_1.h") + "can't open file in/net_split_1.dvi\n");
  expect_bytes(
      folder.read("net.bin"),
      package_header(2) + first_dvi +
          dvi_record(
              {.dvi_id = 1, .vproc_id = 1, .img_size = 3, .pkg_size = 3, .dag_name = "second"}) +
          first_block);
}

}  // namespace
}  // namespace morvane::test

// Pack runs that fail: the message, and the incomplete package that stays on disk.
#include <gtest/gtest.h>

#include <filesystem>

#include "end_to_end/compiler_output.h"
#include "end_to_end/expectations.h"
#include "end_to_end/package_records.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

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

TEST(FailedPackRun, NoFolder) {
  const scratch_folder folder;
  expect_run(run_tool(pack, folder.path()), 255, nothing_found);
  EXPECT_FALSE(folder.exists("net.bin"));
}

TEST(FailedPackRun, AFileInPlaceOfTheFolder) {
  const scratch_folder folder;
  folder.write("in", "");
  expect_run(run_tool(pack, folder.path()), 255, nothing_found);
  expect_run(run_tool({"-d", "", "-f", "net.bin"}, folder.path()), 255, nothing_found);
  EXPECT_FALSE(folder.exists("net.bin"));
}

TEST(FailedPackRun, AFolderWithoutDvis) {
  const scratch_folder folder;
  folder.write("in/net.h", dag_lines("net"));
  folder.write("in/dvi", "");
  folder.write("in/net.dvi.txt", "");
  expect_run(run_tool(pack, folder.path()), 255, nothing_found);
  EXPECT_FALSE(folder.exists("net.bin"));
}

TEST(FailedPackRun, ThreeDvisAndTwoHeaders) {
  const scratch_folder folder;
  put_dag(folder, "net_split_0", dag_lines("first"));
  put_dag(folder, "net_split_1", dag_lines("second"));
  folder.write("in/net_split_2.dvi", "");
  // If a header is missing, no header may begin with an underscore.
  expect_run(run_tool(pack, folder.path()), 255,
             std::string("error: can't find file net_split_0.h. please check filename format "
                         "between .dvi and .h files.\n") +
                 counts_differ);
  EXPECT_FALSE(folder.exists("net.bin"));
}

TEST(FailedPackRun, LeavesAnExistingPackageAloneWhenTheInputIsWrong) {
  const scratch_folder folder;
  folder.write("net.bin", "earlier package");
  folder.write("in/net.dvi", "");
  expect_run(run_tool(pack, folder.path()), 255,
             std::string("error: can't find file net.h. please check filename format "
                         "between .dvi and .h files.\n") +
                 counts_differ);
  EXPECT_EQ(folder.read("net.bin"), "earlier package");
}

TEST(FailedPackRun, APackageThatCannotBeCreated) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net"));
  folder.make_folder("net.bin");
  expect_run(run_tool(pack, folder.path()), 255, "error: can't open file net.bin\n");
  expect_run(run_tool({"-d", "in", "-f", "missing/net.bin"}, folder.path()), 255,
             "error: can't open file missing/net.bin\n");
  expect_run(run_tool({"-d", "in", "-f", ""}, folder.path()), 255, "error: can't open file \n");
  EXPECT_FALSE(folder.exists("missing"));
}

TEST(FailedPackRun, IsNotInspected) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net", 6), "image");
  expect_run(run_tool({"-d", "in", "-v"}, folder.path()), 255,
             no_ports + "error: fail to read 6 bytes from in/net.dvi\n");
  expect_run(run_tool({"-d", "out", "-v"}, folder.path()), 255, nothing_found);
  EXPECT_FALSE(folder.exists("parse"));
}

TEST(FailedPackRun, AnImageThatIsTooShortLeavesTheBlocksBeforeIt) {
  const scratch_folder folder;
  put_dag(folder, "net_split_0", first_header, "one");
  put_dag(folder, "net_split_1", dag_lines("second", 4) + "/* HMB_input c */\n", "two");
  expect_run(run_tool(pack_with_vproc, folder.path()), 255,
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

TEST(FailedPackRun, NothingOfAShortImageOfSeveralReadBuffersIsPacked) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net", 1000001), std::string(1000000, 'i'));
  expect_run(run_tool(pack, folder.path()), 255,
             no_ports + "error: fail to read 1000001 bytes from in/net.dvi\n");
  expect_bytes(folder.read("net.bin"),
               package_header(1) +
                   dvi_record({.img_size = 1000001, .pkg_size = 1000001, .dag_name = "net"}));
}

TEST(FailedPackRun, AnImageOfNegativeSize) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net") + "#define net_image_size -1\n/* HMB_input a */\n",
          "image");
  expect_run(run_tool(pack, folder.path()), 255,
             "warning: fail to find HMB output info in in/_net.h\n"
             "error: fail to read -1 bytes from in/net.dvi\n");
  expect_bytes(
      folder.read("net.bin"),
      package_header(1) +
          dvi_record(
              {.img_size = 0xFFFFFFFF, .input_num = 1, .pkg_size = 1079, .dag_name = "net"}) +
          port_record({.port_name = "a"}));
}

TEST(FailedPackRun, AnImageSizeBeyondTwoGigabytesIsNegative) {
  const scratch_folder folder;
  put_dag(folder, "net", "#define net_DAG_NAME net\n#define net_image_size 2147483648\n", "image");
  expect_run(run_tool(pack, folder.path()), 255,
             no_ports + "error: fail to read -2147483648 bytes from in/net.dvi\n");
}

TEST(FailedPackRun, AnImageThatCannotBeOpened) {
  const scratch_folder folder;
  put_dag(folder, "net_split_0", first_header, "one");
  folder.write("in/_net_split_1.h", dag_lines("second", 3));
  std::filesystem::create_symlink("nowhere", folder.path("in/net_split_1.dvi"));
  expect_run(run_tool(pack, folder.path()), 255,
             "warning: fail to find HMB input info in in/_net_split_1.h\n"
             "warning: fail to find HMB output info in in/_net_split_1.h\n"
             "can't open file in/net_split_1.dvi\n");
  expect_bytes(
      folder.read("net.bin"),
      package_header(2) + first_dvi +
          dvi_record(
              {.dvi_id = 1, .vproc_id = 1, .img_size = 3, .pkg_size = 3, .dag_name = "second"}) +
          first_block);
}

}  // namespace
}  // namespace morvane::test

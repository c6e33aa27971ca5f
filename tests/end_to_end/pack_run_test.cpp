// Packing: the content of a package, and the messages about missing descriptions.
#include <gtest/gtest.h>

#include <filesystem>

#include "end_to_end/compiler_output.h"
#include "end_to_end/expectations.h"
#include "end_to_end/package_records.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

TEST(PackRun, WritesHeaderTableAndOneBlockPerDvi) {
  const scratch_folder folder;
  put_dag(folder, "net_split_0",
          dag_lines("first", 3) + "/* first HMB_input a */\n/* first HMB_output b */\n", "one");
  put_dag(folder, "net_split_1",
          dag_lines("second", 5) + "/* second HMB_input c */\n/* second HMB_output d */\n",
          "two..");
  expect_run(run_tool({"-d", "in", "-f", "net.bin"}, folder.path()), 0,
             "Save to file net.bin with file size 4652.\n\n");
  const std::string package = folder.read("net.bin");
  EXPECT_EQ(package.size(), 4652U);
  expect_bytes(package, package_header(2) +
                            dvi_record({.img_size = 3,
                                        .input_num = 1,
                                        .output_num = 1,
                                        .pkg_size = 2163,
                                        .dag_name = "first"}) +
                            dvi_record({.dvi_id = 1,
                                        .vproc_id = 1,
                                        .img_size = 5,
                                        .input_num = 1,
                                        .output_num = 1,
                                        .pkg_size = 2165,
                                        .dag_name = "second"}) +
                            port_record({.port_name = "a"}) + port_record({.port_name = "b"}) +
                            "one" + port_record({.port_name = "c"}) +
                            port_record({.port_name = "d"}) + "two..");
}

TEST(PackRun, OfOneDviWithTwoPortsAndAHundredByteImage) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net", 100) + "/* HMB_input a */\n/* HMB_output b */\n",
          std::string(100, 'i'));
  expect_run(run_tool({"-d", "in", "-f", "net.bin"}, folder.path()), 0,
             "Save to file net.bin with file size 2428.\n\n");
  expect_bytes(folder.read("net.bin"), package_header(1) +
                                           dvi_record({.img_size = 100,
                                                       .input_num = 1,
                                                       .output_num = 1,
                                                       .pkg_size = 2260,
                                                       .dag_name = "net"}) +
                                           port_record({.port_name = "a"}) +
                                           port_record({.port_name = "b"}) + std::string(100, 'i'));
}

TEST(PackRun, PutsAllInputPortsBeforeTheOutputPorts) {
  const scratch_folder folder;
  put_dag(folder, "net",
          dag_lines("net") +
              "/* HMB_output b */\n/* HMB_input a */\n"
              "/* HMB_output d */\n/* HMB_input c */\n");
  expect_run(run_tool({"-d", "in", "-f", "net.bin"}, folder.path()), 0,
             "Save to file net.bin with file size 4488.\n\n");
  expect_bytes(folder.read("net.bin").substr(168),
               port_record({.port_name = "a"}) + port_record({.port_name = "c"}) +
                   port_record({.port_name = "b"}) + port_record({.port_name = "d"}));
}

TEST(PackRun, WarnsOfAHeaderWithoutOutputPorts) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net", 5) + "/* HMB_input a */\n", "image");
  expect_run(run_tool({"-d", "in", "-f", "net.bin"}, folder.path()), 0,
             "warning: fail to find HMB output info in in/_net.h\n"
             "Save to file net.bin with file size 1253.\n\n");
  expect_bytes(folder.read("net.bin").substr(168), port_record({.port_name = "a"}) + "image");
}

TEST(PackRun, WarnsOfAHeaderWithoutInputPorts) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net", 5) + "/* HMB_output b */\n", "image");
  expect_run(run_tool({"-d", "in", "-f", "net.bin"}, folder.path()), 0,
             "warning: fail to find HMB input info in in/_net.h\n"
             "Save to file net.bin with file size 1253.\n\n");
  expect_bytes(folder.read("net.bin").substr(168), port_record({.port_name = "b"}) + "image");
}

TEST(PackRun, PacksOnlyTheImageOfADviWithoutPorts) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net", 5), "image");
  expect_run(run_tool({"-d", "in", "-f", "net.bin"}, folder.path()), 0,
             "warning: fail to find HMB input info in in/_net.h\n"
             "warning: fail to find HMB output info in in/_net.h\n"
             "Save to file net.bin with file size 173.\n\n");
  expect_bytes(
      folder.read("net.bin"),
      package_header(1) + dvi_record({.img_size = 5, .pkg_size = 5, .dag_name = "net"}) + "image");
}

TEST(PackRun, PacksTheFirstBytesOfAnImageThatIsLonger) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net", 5) + "/* HMB_input a */\n/* HMB_output b */\n",
          "image and the rest");
  expect_run(run_tool({"-d", "in", "-f", "net.bin"}, folder.path()), 0,
             "Save to file net.bin with file size 2333.\n\n");
  expect_bytes(folder.read("net.bin").substr(2328), "image");
}

TEST(PackRun, PacksAnImageOfSeveralReadBuffers) {
  const scratch_folder folder;
  std::string image;
  for (int i = 0; image.size() < 1000000; ++i) {
    image += std::to_string(i) + " ";
  }
  put_dag(folder, "net", dag_lines("net", 1000000), image);
  run_tool({"-d", "in", "-f", "net.bin"}, folder.path());
  expect_bytes(folder.read("net.bin").substr(168), image.substr(0, 1000000));
}

TEST(PackRun, WithVprocWritesTheTableAndTheBlocksAfterTheLastImage) {
  const scratch_folder folder;
  put_dag(folder, "net_split_0",
          dag_lines("first", 3) +
              "/* $x */\n#define x_boffset 8\n#define x_bsize 4\n"
              "/* SMB_input s */\n#define first_s_vbase_byte_offset 16\n",
          "one");
  put_dag(folder, "net_split_1", dag_lines("second", 3) + "/* $y */\n/* $z */\n", "two");
  const std::string warnings =
      "warning: fail to find HMB input info in in/_net_split_0.h\n"
      "warning: fail to find HMB output info in in/_net_split_0.h\n"
      "warning: fail to find HMB input info in in/_net_split_1.h\n"
      "warning: fail to find HMB output info in in/_net_split_1.h\n";
  expect_run(run_tool({"-d", "in", "-f", "plain.bin"}, folder.path()), 0,
             warnings + "Save to file plain.bin with file size 330.\n\n");
  expect_run(run_tool({"-d", "in", "-f", "vproc.bin", "-c"}, folder.path()), 0,
             warnings + "Save to file vproc.bin with file size 894.\n\n");
  expect_bytes(folder.read("vproc.bin"), folder.read("plain.bin") + vproc_record(1, 1, 268) +
                                             vproc_record(2, 0, 272) + variable_record("x", 8, 4) +
                                             smb_record("s", 16) + variable_record("y", 0, 0) +
                                             variable_record("z", 0, 0));
}

TEST(PackRun, WithVprocWarnsOfMissingVariablesButNotOfMissingSmbs) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net") + "/* HMB_input a */\n/* HMB_output b */\n");
  expect_run(run_tool({"-d", "in", "-f", "net.bin", "-c"}, folder.path()), 0,
             "warning: fail to find vproc self-defined variables in in/_net.h\n"
             "Save to file net.bin with file size 2340.\n\n");
  expect_bytes(folder.read("net.bin").substr(2328), vproc_record(0, 0, 0));
}

TEST(PackRun, SaysNothingOfAHeaderWithVariablesOnly) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net") + "/* HMB_input a */\n/* HMB_output b */\n/* $x */\n");
  expect_run(run_tool({"-d", "in", "-f", "net.bin", "-c"}, folder.path()), 0,
             "Save to file net.bin with file size 2476.\n\n");
  expect_bytes(folder.read("net.bin").substr(2328),
               vproc_record(1, 0, 136) + variable_record("x", 0, 0));
}

TEST(PackRun, InspectsOnlyAfterTheClosingLineAndSucceedsWhateverTheInspectionFinds) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net") + "/* HMB_input a */\n/* HMB_output b */\n");
  expect_run(run_tool({"-d", "in", "-f", "/dev/null", "-v"}, folder.path()), 0,
             "Save to file /dev/null with file size 2328.\n"
             "\n"
             "version 0.0.0 ( HASH 0000000 ) dvi_num: 0\n"
             "\n"
             "\n"
             "error: fail to parse file /dev/null\n"
             ".dvi files are parsed to folder .//parse\n"
             "\n");
}

TEST(PackRun, AlwaysAddsTheSlashToTheInputFolder) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net"));
  expect_run(run_tool({"-d", "in/"}, folder.path()), 0,
             "warning: fail to find HMB input info in in//_net.h\n"
             "warning: fail to find HMB output info in in//_net.h\n"
             "Save to file morvane_gen.bin with file size 168.\n\n");
}

TEST(PackRun, PrintsTheDeclaredSizeAlsoWhereTheRecordsDiffer) {
  const scratch_folder folder;
  put_dag(folder, "net", "/* HMB_input early */\n" + dag_lines("net") + "/* HMB_output b */\n");
  expect_run(run_tool({"-d", "in", "-f", "net.bin"}, folder.path()), 0,
             "Save to file net.bin with file size 1248.\n\n");
  expect_bytes(folder.read("net.bin"),
               package_header(1) +
                   dvi_record({.output_num = 1, .pkg_size = 1080, .dag_name = "net"}) +
                   port_record({.port_name = "early"}) + port_record({.port_name = "b"}));
}

}  // namespace
}  // namespace morvane::test

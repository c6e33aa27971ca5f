// Names of DAGs, ports, layers, variables and SMBs at their limits: the longest names are packed,
// longer names end the run.
#include <gtest/gtest.h>

#include "end_to_end/compiler_output.h"
#include "end_to_end/expectations.h"
#include "end_to_end/package_records.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

TEST(OverlongName, TheLongestNamesArePacked) {
  const scratch_folder folder;
  const std::string dag(127, 'd');
  const std::string port(511, 'p');
  const std::string layer(511, '/');
  const std::string variable(127, 'v');
  const std::string smb(127, 's');
  std::string header = dag_lines(dag);
  header += "/* HMB_input " + port + " */\n";
  header += "/* HMB_output o */\n";
  header += "#define net_o_qubrix_demangled_name \"" + layer + "\"\n";
  header += "/* $" + variable + " */\n";
  header += "#define " + variable + "_bsize 1\n";
  header += "/* SMB_input " + smb + " */\n";
  header += "#define net_" + smb + "_vbase_byte_offset 2\n";
  put_dag(folder, "net", header);
  expect_run(run_tool(pack_with_vproc, folder.path()), 0, saved("2608"));
  expect_bytes(
      folder.read("net.bin"),
      package_header(1) +
          dvi_record({.input_num = 1, .output_num = 1, .pkg_size = 2160, .dag_name = dag}) +
          port_record({.port_name = port}) + port_record({.port_name = "o", .layer_name = layer}) +
          vproc_record(1, 1, 268) + variable_record(variable, 0, 1) + smb_record(smb, 2));
}

TEST(OverlongName, AFirstDagNameThatIsTooLongLeavesTheHeaderOnly) {
  const scratch_folder folder;
  const std::string dag(128, 'd');
  put_dag(folder, "net_split_0", dag_lines(dag));
  put_dag(folder, "net_split_1", dag_lines("second"));
  expect_run(run_tool(pack, folder.path()), 255,
             length_message("VAR_NAME", dag) + "warning: fail to find DVI descriptions in in\n");
  expect_bytes(folder.read("net.bin"), package_header(2));
}

TEST(OverlongName, ALaterDagNameThatIsTooLongLeavesTheRecordsBeforeIt) {
  const scratch_folder folder;
  const std::string dag(128, 'd');
  put_dag(folder, "net_split_0", dag_lines("first", 3), "one");
  put_dag(folder, "net_split_1", dag_lines(dag), "");
  put_dag(folder, "net_split_2", dag_lines("third"), "");
  expect_run(run_tool(pack_with_vproc, folder.path()), 255, length_message("VAR_NAME", dag));
  expect_bytes(folder.read("net.bin"),
               package_header(3) + dvi_record({.img_size = 3, .pkg_size = 3, .dag_name = "first"}));
}

TEST(OverlongName, OfAnInputPortLeavesNoPortOfItsDvi) {
  const scratch_folder folder;
  const std::string port(512, 'p');
  put_dag(
      folder, "net",
      dag_lines("net", 5) + "/* HMB_input a */\n/* HMB_input " + port + " */\n/* HMB_output b */\n",
      "image");
  expect_run(run_tool(pack, folder.path()), 255, length_message("IO_NAME", port));
  expect_bytes(folder.read("net.bin"), package_header(1) + dvi_record({.img_size = 5,
                                                                       .input_num = 2,
                                                                       .output_num = 1,
                                                                       .pkg_size = 3245,
                                                                       .dag_name = "net"}));
}

TEST(OverlongName, OfAnOutputPortLeavesNoPortOfItsDvi) {
  const scratch_folder folder;
  const std::string port(512, 'p');
  put_dag(folder, "net_split_0", dag_lines("first", 3) + "/* HMB_input a */\n", "one");
  put_dag(folder, "net_split_1",
          dag_lines("second", 3) + "/* HMB_input b */\n/* HMB_output " + port + " */\n", "two");
  expect_run(run_tool(pack, folder.path()), 255,
             "warning: fail to find HMB output info in in/_net_split_0.h\n" +
                 length_message("IO_NAME", port));
  expect_bytes(
      folder.read("net.bin"),
      package_header(2) +
          dvi_record({.img_size = 3, .input_num = 1, .pkg_size = 1083, .dag_name = "first"}) +
          dvi_record({.dvi_id = 1,
                      .vproc_id = 1,
                      .img_size = 3,
                      .input_num = 1,
                      .output_num = 1,
                      .pkg_size = 2163,
                      .dag_name = "second"}) +
          port_record({.port_name = "a"}) + "one");
}

TEST(OverlongName, OfALayerLeavesNoPortOfItsDvi) {
  const scratch_folder folder;
  const std::string layer(512, 'l');
  put_dag(folder, "net",
          dag_lines("net") + "/* HMB_input a */\n#define net_a_qubrix_demangled_name \"" + layer +
              "\"\n");
  expect_run(run_tool(pack, folder.path()), 255, length_message("IO_DEMNGL_NAME", layer));
  expect_bytes(
      folder.read("net.bin"),
      package_header(1) + dvi_record({.input_num = 1, .pkg_size = 1080, .dag_name = "net"}));
}

TEST(OverlongName, OfAVariableLeavesTheVprocTableAndTheBlocksBeforeIt) {
  const scratch_folder folder;
  const std::string variable(128, 'v');
  put_dag(folder, "net_split_0", dag_lines("first") + "/* $x */\n/* SMB_input s */\n");
  put_dag(folder, "net_split_1",
          dag_lines("second") + "/* $y */\n/* $" + variable + " */\n/* SMB_input t */\n");
  expect_run(run_tool(pack_with_vproc, folder.path()), 255,
             "warning: fail to find HMB input info in in/_net_split_0.h\n"
             "warning: fail to find HMB output info in in/_net_split_0.h\n"
             "warning: fail to find HMB input info in in/_net_split_1.h\n"
             "warning: fail to find HMB output info in in/_net_split_1.h\n" +
                 length_message("VAR_NAME", variable));
  expect_bytes(folder.read("net.bin"),
               package_header(2) + dvi_record({.dag_name = "first"}) +
                   dvi_record({.dvi_id = 1, .vproc_id = 1, .dag_name = "second"}) +
                   vproc_record(1, 1, 268) + vproc_record(2, 1, 404) + variable_record("x", 0, 0) +
                   smb_record("s", 0));
}

TEST(OverlongName, OfAnSmbLeavesNoVariableOfItsDvi) {
  const scratch_folder folder;
  const std::string smb(128, 's');
  put_dag(folder, "net",
          dag_lines("net") + "/* $x */\n/* SMB_input t */\n/* SMB_input " + smb + " */\n");
  expect_run(run_tool(pack_with_vproc, folder.path()), 255,
             no_ports + length_message("VAR_NAME", smb));
  expect_bytes(folder.read("net.bin"),
               package_header(1) + dvi_record({.dag_name = "net"}) + vproc_record(1, 2, 400));
}

TEST(OverlongName, OfAVariableOrAnSmbDoesNotMatterWithoutVproc) {
  const scratch_folder folder;
  put_dag(folder, "net",
          dag_lines("net") + "/* $" + std::string(128, 'v') + " */\n/* SMB_input " +
              std::string(128, 's') + " */\n");
  expect_run(run_tool(pack, folder.path()), 0, no_ports + saved("168"));
}

}  // namespace
}  // namespace morvane::test

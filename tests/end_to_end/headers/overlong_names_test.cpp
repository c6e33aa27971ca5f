// Names of DAGs, ports, layers, variables and SMBs at their limits: the longest names are packed,
// longer names end the run.
#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

using OverlongName = tool_test;

TEST_F(OverlongName, TheLongestNamesArePacked) {
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
  put_dag("net", header);
  expect_tool(pack_with_vproc, 0, saved("2608"));
  expect_bytes(
      folder.read("net.bin"),
      package_header(1) +
          dvi_record({.input_num = 1, .output_num = 1, .pkg_size = 2160, .dag_name = dag}) +
          port_record({.port_name = port}) + port_record({.port_name = "o", .layer_name = layer}) +
          vproc_record(1, 1, 268) + variable_record(variable, 0, 1) + smb_record(smb, 2));
}

TEST_F(OverlongName, AFirstDagNameThatIsTooLongLeavesTheHeaderOnly) {
  const std::string dag(128, 'd');
  put_dag("net_split_0", dag_lines(dag));
  put_dag("net_split_1", dag_lines("second"));
  expect_tool(pack, 255,
              length_message("VAR_NAME", dag) + "warning: fail to find DVI descriptions in in\n");
  expect_bytes(folder.read("net.bin"), package_header(2));
}

TEST_F(OverlongName, ALaterDagNameThatIsTooLongLeavesTheRecordsBeforeIt) {
  const std::string dag(128, 'd');
  put_dag("net_split_0", dag_lines("first", 3), "one");
  put_dag("net_split_1", dag_lines(dag), "");
  put_dag("net_split_2", dag_lines("third"), "");
  expect_tool(pack_with_vproc, 255, length_message("VAR_NAME", dag));
  expect_bytes(folder.read("net.bin"),
               package_header(3) + dvi_record({.img_size = 3, .pkg_size = 3, .dag_name = "first"}));
}

TEST_F(OverlongName, LeavesWhatComesBeforeTheRecordsOfItsKind) {
  const std::string longest(512, 'n');
  const std::string smb(128, 's');
  const struct {
    std::string lines;
    std::string output;
    std::string package;
  } rows[] = {
      {"/* HMB_input a */\n/* HMB_input " + longest + " */\n/* HMB_output b */\n",
       length_message("IO_NAME", longest),
       dvi_record({.input_num = 2, .output_num = 1, .pkg_size = 3240, .dag_name = "net"})},
      {"/* HMB_input a */\n#define net_a_qubrix_demangled_name \"" + longest + "\"\n",
       length_message("IO_DEMNGL_NAME", longest),
       dvi_record({.input_num = 1, .pkg_size = 1080, .dag_name = "net"})},
      {"/* $x */\n/* SMB_input t */\n/* SMB_input " + smb + " */\n",
       no_ports + length_message("VAR_NAME", smb),
       dvi_record({.dag_name = "net"}) + vproc_record(1, 2, 400)},
  };
  for (const auto& row : rows) {
    put_dag("net", dag_lines("net") + row.lines);
    expect_tool(pack_with_vproc, 255, row.output);
    expect_bytes(folder.read("net.bin"), package_header(1) + row.package);
  }
}

TEST_F(OverlongName, OfAnOutputPortLeavesNoPortOfItsDvi) {
  const std::string port(512, 'p');
  put_dag("net_split_0", dag_lines("first", 3) + "/* HMB_input a */\n", "one");
  put_dag("net_split_1",
          dag_lines("second", 3) + "/* HMB_input b */\n/* HMB_output " + port + " */\n", "two");
  expect_tool(pack, 255,
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

TEST_F(OverlongName, OfAVariableLeavesTheVprocTableAndTheBlocksBeforeIt) {
  const std::string variable(128, 'v');
  put_dag("net_split_0", dag_lines("first") + "/* $x */\n/* SMB_input s */\n");
  put_dag("net_split_1",
          dag_lines("second") + "/* $y */\n/* $" + variable + " */\n/* SMB_input t */\n");
  expect_tool(pack_with_vproc, 255,
              no_ports_in("_net_split_0.h") + no_ports_in("_net_split_1.h") +
                  length_message("VAR_NAME", variable));
  expect_bytes(folder.read("net.bin"),
               package_header(2) + dvi_record({.dag_name = "first"}) +
                   dvi_record({.dvi_id = 1, .vproc_id = 1, .dag_name = "second"}) +
                   vproc_record(1, 1, 268) + vproc_record(2, 1, 404) + variable_record("x", 0, 0) +
                   smb_record("s", 0));
}

TEST_F(OverlongName, OfAVariableOrAnSmbDoesNotMatterWithoutVproc) {
  put_dag("net", dag_lines("net") + "/* $" + std::string(128, 'v') + " */\n/* SMB_input " +
                     std::string(128, 's') + " */\n");
  expect_tool(pack, 0, no_ports + saved("168"));
}

}  // namespace
}  // namespace morvane::test

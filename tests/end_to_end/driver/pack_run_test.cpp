// Packing: the content of a package, and the messages about missing descriptions.
#include <filesystem>

#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

using PackRun = tool_test;

TEST_F(PackRun, PutsAllInputPortsBeforeTheOutputPorts) {
  put_dag("net", dag_lines("net") +
                     "/* HMB_output b */\n/* HMB_input a */\n"
                     "/* HMB_output d */\n/* HMB_input c */\n");
  expect_tool(pack, 0, saved("4488"));
  expect_bytes(folder.read("net.bin").substr(168),
               port_record({.port_name = "a"}) + port_record({.port_name = "c"}) +
                   port_record({.port_name = "b"}) + port_record({.port_name = "d"}));
}

TEST_F(PackRun, WarnsOfMissingPortsAndPacksTheOthers) {
  const struct {
    const char* lines;
    std::string output;
    std::string ports;
  } rows[] = {
      {"/* HMB_input a */\n",
       "warning: fail to find HMB output info in in/_net.h\n" + saved("1253"),
       port_record({.port_name = "a"})},
      {"/* HMB_output b */\n",
       "warning: fail to find HMB input info in in/_net.h\n" + saved("1253"),
       port_record({.port_name = "b"})},
      {"", no_ports + saved("173"), ""},
  };
  for (const auto& row : rows) {
    const scratch_folder other;
    test::put_dag(other, "net", dag_lines("net", 5) + row.lines, "image");
    expect_run(run_tool(pack, other.path()), 0, row.output);
    expect_bytes(other.read("net.bin").substr(168), row.ports + "image");
  }
}

/// An image in which no two places look the same.
std::string long_image(std::size_t size) {
  std::string image;
  for (int i = 0; image.size() < size; ++i) {
    image += std::to_string(i) + " ";
  }
  return image.substr(0, size);
}

TEST_F(PackRun, PacksAndInspectsLongImages) {
  // Longer than the buffers; the last ones are copied by the system.
  const std::size_t sizes[] = {1, 1000000, 3145735, 5, 1048576};
  std::string images;
  for (std::size_t i = 0; i < std::size(sizes); ++i) {
    const std::string name = "net_split_" + std::to_string(i);
    put_dag(name, dag_lines(name, static_cast<unsigned>(sizes[i])),
            long_image(sizes[i]) + "left out");
    images += long_image(sizes[i]);
  }
  tool({"-d", "in", "-f", "net.bin", "-v"});
  expect_bytes(folder.read("net.bin").substr(12 + 5 * 156), images);
  for (std::size_t i = 0; i < std::size(sizes); ++i) {
    expect_bytes(folder.read("parse/net_split_" + std::to_string(i) + ".dvi"),
                 long_image(sizes[i]));
  }
}

TEST_F(PackRun, WithVprocWarnsOfMissingVariablesButNotOfMissingSmbs) {
  put_dag("net", dag_lines("net") + "/* HMB_input a */\n/* HMB_output b */\n");
  expect_tool(pack_with_vproc, 0,
              "warning: fail to find vproc self-defined variables in in/_net.h\n" + saved("2340"));
  expect_bytes(folder.read("net.bin").substr(2328), no_vproc);
}

TEST_F(PackRun, SaysNothingOfAHeaderWithVariablesOnly) {
  put_dag("net", dag_lines("net") + "/* HMB_input a */\n/* HMB_output b */\n/* $x */\n");
  expect_tool(pack_with_vproc, 0, saved("2476"));
  expect_bytes(folder.read("net.bin").substr(2328),
               vproc_record(1, 0, 136) + variable_record("x", 0, 0));
}

TEST_F(PackRun, InspectsOnlyAfterTheClosingLineAndSucceedsWhateverTheInspectionFinds) {
  put_dag("net", dag_lines("net") + "/* HMB_input a */\n/* HMB_output b */\n");
  expect_tool({"-d", "in", "-f", "/dev/null", "-v"}, 0,
              "Save to file /dev/null with file size 2328.\n"
              "\n"
              "version 0.0.0 ( HASH 0000000 ) dvi_num: 0\n"
              "\n"
              "\n"
              "error: fail to parse file /dev/null\n"
              ".dvi files are parsed to folder .//parse\n"
              "\n");
}

TEST_F(PackRun, AlwaysAddsTheSlashToTheInputFolder) {
  put_dag("net", dag_lines("net"));
  expect_tool({"-d", "in/"}, 0,
              "warning: fail to find HMB input info in in//_net.h\n"
              "warning: fail to find HMB output info in in//_net.h\n"
              "Save to file morvane_gen.bin with file size 168.\n\n");
}

TEST_F(PackRun, PrintsTheDeclaredSizeAlsoWhereTheRecordsDiffer) {
  put_dag("net", "/* HMB_input early */\n" + dag_lines("net") + "/* HMB_output b */\n");
  expect_tool(pack, 0, saved("1248"));
  expect_bytes(folder.read("net.bin"),
               package_header(1) +
                   dvi_record({.output_num = 1, .pkg_size = 1080, .dag_name = "net"}) +
                   port_record({.port_name = "early"}) + port_record({.port_name = "b"}));
}

}  // namespace
}  // namespace morvane::test

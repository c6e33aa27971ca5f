// Lines at the length limit, anywhere in a header. A pack run with vproc records reads a header up
// to seven times, in this order: for duplicate DAG names (only up to the first name), the DAG, the
// input ports, the output ports, the vproc counts, the variables and the SMBs. Each time every
// over-long line is reported. It is reported again if it follows the last line of a block, as the
// lines after a block are read a second time.
#include <gtest/gtest.h>

#include "end_to_end/compiler_output.h"
#include "end_to_end/expectations.h"
#include "end_to_end/package_records.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

const std::string no_inputs = "warning: fail to find HMB input info in in/_net.h\n";
const std::string no_outputs = "warning: fail to find HMB output info in in/_net.h\n";
const std::string no_variables =
    "warning: fail to find vproc self-defined variables in in/_net.h\n";

/// Packs one DVI with this header, checks the output, and returns the bytes of the package after
/// its table.
std::string expect_packed_lines(std::string_view header, std::string_view output) {
  const scratch_folder folder;
  put_dag(folder, "net", header);
  expect_run(run_tool(pack_with_vproc, folder.path()), 0, output);
  return folder.read("net.bin").substr(168);
}

const std::string line_1200(1200, 'x');
const std::string message = length_message("LINE_LEN", line_1200);

TEST(OverlongLine, BeforeTheDagNameIsReportedByAllSevenReadings) {
  expect_packed_lines(line_1200 + "\n" + dag_lines("net"),
                      message + message +                               // duplicate names, DAG
                          message + message + no_inputs + no_outputs +  // input ports, output ports
                          message + message + message + no_variables + saved("180"));  // vproc
}

TEST(OverlongLine, AfterTheDagNameIsReportedBySixReadings) {
  expect_packed_lines(dag_lines("net") + line_1200 + "\n",
                      message + message + message + no_inputs + no_outputs + message + message +
                          message + no_variables + saved("180"));
}

TEST(OverlongLine, AsTheLastLineWithoutLineBreakIsReportedTheSame) {
  expect_packed_lines(dag_lines("net") + line_1200, message + message + message + no_inputs +
                                                        no_outputs + message + message + message +
                                                        no_variables + saved("180"));
}

TEST(OverlongLine, WithoutADagNameIsReportedByAllSevenReadings) {
  expect_packed_lines(line_1200 + "\n", message + message + message + message + no_inputs +
                                            no_outputs + message + message + message +
                                            no_variables + saved("180"));
}

TEST(OverlongLine, SeveralAreReportedInTheirOrderByEachReading) {
  const std::string line_1024(1024, 'y');
  const std::string both = message + length_message("LINE_LEN", line_1024);
  expect_packed_lines(dag_lines("net") + line_1200 + "\n\n" + line_1024 + "\n",
                      both + both + both + no_inputs + no_outputs + both + both + both +
                          no_variables + saved("180"));
}

TEST(OverlongLine, InsideABlockOfInputPortsIsReportedOnceByEachReading) {
  const std::string ports =
      expect_packed_lines(dag_lines("net") + "/* HMB_input a */\n#define net_a_W 1\n" + line_1200 +
                              "\n#define net_a_H 2\n",
                          message + message + message + no_outputs + message + message + message +
                              no_variables + saved("1260"));
  expect_bytes(ports, port_record({.port_name = "a", .H = 2, .W = 1}) + vproc_record(0, 0, 0));
}

TEST(OverlongLine, AtTheEndOfABlockOfInputPortsIsReportedTwiceByThatReading) {
  const std::string ports = expect_packed_lines(
      dag_lines("net") + "/* HMB_input a */\n#define net_a_W 1\n" + line_1200 +
          "\n#define net_H 2\n",
      message +                // DAG
          message + message +  // input ports
          message +            // output ports
          no_outputs + message + message + message + no_variables + saved("1260"));
  expect_bytes(ports, port_record({.port_name = "a", .W = 1}) + vproc_record(0, 0, 0));
}

TEST(OverlongLine, BetweenTwoInputPortsIsReportedTwiceByThatReading) {
  expect_packed_lines(
      dag_lines("net") + "/* HMB_input a */\n" + line_1200 + "\n/* HMB_input b */\n",
      message + message + message + message + no_outputs + message + message + message +
          no_variables + saved("2340"));
}

TEST(OverlongLine, AtTheEndOfTheHeaderIsNotReadAgain) {
  expect_packed_lines(
      dag_lines("net") + "/* HMB_input a */\n#define net_a_W 1\n" + line_1200 + "\n",
      message + message + message + no_outputs + message + message + message + no_variables +
          saved("1260"));
}

TEST(OverlongLine, AtTheEndOfABlockOfOutputPortsIsReportedTwiceByThatReading) {
  expect_packed_lines(dag_lines("net") + "/* HMB_output a */\n" + line_1200 + "\n#define net_H 2\n",
                      message +                // DAG
                          message +            // input ports
                          message + message +  // output ports
                          no_inputs + message + message + message + no_variables + saved("1260"));
}

TEST(OverlongLine, AtTheEndOfABlockOfAVariableIsReportedTwiceByThatReading) {
  expect_packed_lines(dag_lines("net") + "/* $x */\n" + line_1200 + "\n#define net_H 2\n",
                      message + message + message + no_inputs + no_outputs +
                          message +            // vproc counts
                          message + message +  // variables
                          message +            // SMBs
                          saved("316"));
}

TEST(OverlongLine, AtTheEndOfABlockOfAnSmbIsReportedTwiceByThatReading) {
  expect_packed_lines(dag_lines("net") + "/* SMB_input s */\n" + line_1200 + "\n#define net_H 2\n",
                      message + message + message + no_inputs + no_outputs +
                          message +            // vproc counts
                          message +            // variables
                          message + message +  // SMBs
                          no_variables + saved("312"));
}

TEST(OverlongLine, InsideABlockOfVariablesOrSmbsIsReportedOnceByEachReading) {
  const std::string records = expect_packed_lines(
      dag_lines("net") + "/* $x */\n#define x_bsize 1\n" + line_1200 +
          "\n#define x_boffset 2\n/* SMB_input s */\n" + line_1200 +
          "\n#define net_s_vbase_byte_offset 3\n",
      message + message + message + message + message + message + no_inputs + no_outputs + message +
          message + message + message + message + message + saved("448"));
  expect_bytes(records, vproc_record(1, 1, 268) + variable_record("x", 2, 1) + smb_record("s", 3));
}

TEST(OverlongLine, DoesNotEndABlockThatItWouldEndWereItShorter) {
  const std::string next_port = padded("/* HMB_input b */", 1024);
  const std::string long_message = length_message("LINE_LEN", next_port);
  const std::string records = expect_packed_lines(
      dag_lines("net") + "/* HMB_input a */\n" + next_port + "\n#define net_a_W 1\n",
      long_message + long_message + long_message + no_outputs + long_message + long_message +
          long_message + no_variables + saved("1260"));
  expect_bytes(records, port_record({.port_name = "a", .W = 1}) + vproc_record(0, 0, 0));
}

}  // namespace
}  // namespace morvane::test

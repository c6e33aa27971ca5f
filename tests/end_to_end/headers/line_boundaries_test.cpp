// Lines at the length limit, anywhere in a header. A pack run with vproc records reads a header up
// to seven times, in this order: for duplicate DAG names (only up to the first name), the DAG, the
// input ports, the output ports, the vproc counts, the variables and the SMBs. Each time every
// over-long line is reported. It is reported again if it follows the last line of a block, as the
// lines after a block are read a second time.
#include <regex>

#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

const std::string no_inputs = "warning: fail to find HMB input info in in/_net.h\n";
const std::string no_outputs = "warning: fail to find HMB output info in in/_net.h\n";
const std::string no_variables =
    "warning: fail to find vproc self-defined variables in in/_net.h\n";

/// How often each reading reports the over-long lines of a header. There is a warning for what the
/// package has no records of.
struct readings {
  int duplicate_names, dag, inputs, outputs, vproc_counts, variables, smbs;
};

/// Packs one DVI with this header, checks the output and the records of the package. The
/// report is that of the over-long lines.
void expect_reports(std::string_view header, const std::string& report, const readings& times,
                    std::string_view records) {
  const auto reports = [&](int count) {
    std::string text;
    while (count-- > 0) {
      text += report;
    }
    return text;
  };
  const auto warning = [&](const char* keyword, const std::string& text) {
    return header.find(keyword) == std::string_view::npos ? text : "";
  };
  const scratch_folder folder;
  put_dag(folder, "net", header);
  expect_run(run_tool(pack_with_vproc, folder.path()), 0,
             reports(times.duplicate_names + times.dag + times.inputs + times.outputs) +
                 warning("HMB_input", no_inputs) + warning("HMB_output", no_outputs) +
                 reports(times.vproc_counts + times.variables + times.smbs) +
                 warning("$", no_variables) + saved(std::to_string(168 + records.size())));
  expect_bytes(folder.read("net.bin").substr(168), records);
}

const std::string port_a = port_record({.port_name = "a", .W = 1});
const std::string empty_a = port_record({.port_name = "a"});
const std::string empty_b = port_record({.port_name = "b"});

TEST(OverlongLine, IsReportedByEachReadingAndTwiceBetweenABlockAndTheLineThatEndsIt) {
  const struct {
    std::string header;  // "@" is the line, DAG names the DAG
    readings times;
    std::string records;
  } rows[] = {
      // Without a block. After the name of the DAG, nobody looks for duplicate names.
      {"@\nDAG", {1, 1, 1, 1, 1, 1, 1}, no_vproc},
      {"@\n", {1, 1, 1, 1, 1, 1, 1}, no_vproc},
      {"DAG@\n", {0, 1, 1, 1, 1, 1, 1}, no_vproc},
      {"DAG@", {0, 1, 1, 1, 1, 1, 1}, no_vproc},
      // Inside a block.
      {"DAG/* HMB_input a */\nnet_a_W 1\n@\nnet_a_H 2\n",
       {0, 1, 1, 1, 1, 1, 1},
       port_record({.port_name = "a", .H = 2, .W = 1}) + no_vproc},
      {"DAG/* $x */\nx_bsize 1\n@\nx_boffset 2\n/* SMB_input s */\n@\nnet_s_vbase_byte_offset 3\n",
       {0, 2, 2, 2, 2, 2, 2},
       vproc_record(1, 1, 268) + variable_record("x", 2, 1) + smb_record("s", 3)},
      // Between a block and the line that ends it.
      {"DAG/* HMB_input a */\nnet_a_W 1\n@\nnet_H 2\n", {0, 1, 2, 1, 1, 1, 1}, port_a + no_vproc},
      {"DAG/* HMB_input a */\n@\n/* HMB_input b */\n",
       {0, 1, 2, 1, 1, 1, 1},
       empty_a + empty_b + no_vproc},
      {"DAG/* HMB_input a */\n@\n\n@\n/* HMB_input b */\n",
       {0, 2, 4, 2, 2, 2, 2},
       empty_a + empty_b + no_vproc},
      {"DAG/* HMB_output a */\n@\nnet_H 2\n", {0, 1, 1, 2, 1, 1, 1}, empty_a + no_vproc},
      {"DAG/* $x */\n@\nnet_H 2\n",
       {0, 1, 1, 1, 1, 2, 1},
       vproc_record(1, 0, 136) + variable_record("x", 0, 0)},
      {"DAG/* SMB_input s */\n@\nnet_H 2\n",
       {0, 1, 1, 1, 1, 1, 2},
       vproc_record(0, 1, 132) + smb_record("s", 0)},
      // After that line, and at the end of the header.
      {"DAG/* HMB_input a */\nnet_H 2\n@\n/* HMB_input b */\n",
       {0, 1, 1, 1, 1, 1, 1},
       empty_a + empty_b + no_vproc},
      {"DAG/* HMB_input a */\nnet_a_W 1\n@\n", {0, 1, 1, 1, 1, 1, 1}, port_a + no_vproc},
      {"DAG/* HMB_input a */\nnet_a_W 1\n@\n\n \n", {0, 1, 1, 1, 1, 1, 1}, port_a + no_vproc},
  };
  const std::string line(1200, 'x');
  for (const auto& row : rows) {
    SCOPED_TRACE(row.header);
    std::string header = std::regex_replace(row.header, std::regex("DAG"), dag_lines("net"));
    expect_reports(std::regex_replace(header, std::regex("@"), line),
                   length_message("LINE_LEN", line), row.times, row.records);
  }
}

TEST(OverlongLine, SeveralAreReportedInTheirOrderByEachReading) {
  const std::string first(1200, 'x');
  const std::string second(1024, 'y');
  expect_reports(dag_lines("net") + first + "\n\n" + second + "\n",
                 length_message("LINE_LEN", first) + length_message("LINE_LEN", second),
                 {0, 1, 1, 1, 1, 1, 1}, no_vproc);
}

TEST(OverlongLine, DoesNotEndABlockThatItWouldEndWereItShorter) {
  const std::string next_port = padded("/* HMB_input b */", 1024);
  expect_reports(dag_lines("net") + "/* HMB_input a */\n" + next_port + "\n#define net_a_W 1\n",
                 length_message("LINE_LEN", next_port), {0, 1, 1, 1, 1, 1, 1}, port_a + no_vproc);
}

}  // namespace
}  // namespace morvane::test

// Lines of the greatest length and one byte more, as the first, an inner and the last line of every
// kind of block. Also the last line of a header as the end of a block.
#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

/// Packs one DVI with a DAG name and these lines as its header, with vproc records. Returns the
/// bytes of the package after its table.
std::string packed_lines(const std::string& lines) {
  return packed(dag_lines("net") + lines, "", pack_with_vproc).substr(156);
}

using LineOf1023Characters = tool_test;

TEST_F(LineOf1023Characters, IsReadWithoutAMessage) {
  put_dag("net", padded("#define net_DAG_NAME net", 1023) + "\n" +  //
                     padded("/* HMB_input a */", 1023) + "\n" +     //
                     padded("/* HMB_output b */", 1023) + "\n" +    //
                     padded("/* $x */", 1023) + "\n" +              //
                     padded("/* SMB_input s */", 1022) + "\r\n");
  expect_tool(pack_with_vproc, 0, saved("2608"));
}

TEST(LineOf1024Characters, IsTooLongWithItsCarriageReturnOrANulInIt) {
  std::string with_nul = padded("short", 1024);
  with_nul[5] = '\0';
  for (const std::string& line : {padded("/* HMB_input a */", 1023) + "\r", with_nul}) {
    const scratch_folder folder;
    put_dag(folder, "net", dag_lines("net") + line + "\n");
    const std::string message = length_message("LINE_LEN", line);
    expect_run(run_tool(pack, folder.path()), 0,
               message + message + message + no_ports + saved("168"));
  }
}

TEST(LineLimit, OfTheDagName) {
  const auto table = [](std::size_t length) {
    return packed(padded("#define net_DAG_NAME net", length) + "\n" +
                  padded("#define net_image_start 7", length) + "\n");
  };
  expect_bytes(table(1023), dvi_record({.img_vaddr = 7, .dag_name = "net"}));
  expect_bytes(table(1024), dvi_record({}));
}

TEST(LineLimit, OfThePortBlocks) {
  const std::string intro = "/* HMB_input a */";
  const std::string macro = "#define net_a_W 1";
  const std::string last = "#define net_a_H 2";
  const auto lines = [&](std::size_t first_length, std::size_t inner_length,
                         std::size_t last_length) {
    return packed_lines(padded(intro, first_length) + "\n" + padded(macro, inner_length) + "\n" +
                        padded(last, last_length));
  };
  expect_bytes(lines(1023, 1023, 1023), port_record({.port_name = "a", .H = 2, .W = 1}) + no_vproc);
  expect_bytes(lines(1024, 20, 20), no_vproc);
  expect_bytes(lines(20, 1024, 20), port_record({.port_name = "a", .H = 2}) + no_vproc);
  expect_bytes(lines(20, 20, 1024), port_record({.port_name = "a", .W = 1}) + no_vproc);
}

TEST(LastLineWithoutLineBreak, MayBeTheNextPort) {
  expect_bytes(
      packed_lines("/* HMB_input a */\n#define net_a_W 1\n/* HMB_input b */"),
      port_record({.port_name = "a", .W = 1}) + port_record({.port_name = "b"}) + no_vproc);
  expect_bytes(packed_lines("/* HMB_output a */\n/* HMB_output b */"),
               port_record({.port_name = "a"}) + port_record({.port_name = "b"}) + no_vproc);
}

TEST(LastLineWithoutLineBreak, MayHoldTheLastMacroOfABlock) {
  expect_bytes(packed_lines("/* HMB_input a */\n#define net_a_W 12"),
               port_record({.port_name = "a", .W = 12}) + no_vproc);
  expect_bytes(packed_lines("/* $x */\n#define x_bsize 12"),
               vproc_record(1, 0, 136) + variable_record("x", 0, 12));
  expect_bytes(packed_lines("/* SMB_input s */\n#define net_s_vbase_byte_offset 12"),
               vproc_record(0, 1, 132) + smb_record("s", 12));
}

}  // namespace
}  // namespace morvane::test

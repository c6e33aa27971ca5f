// Which ports the lines of a header give.
#include <gtest/gtest.h>

#include "end_to_end/compiler_output.h"
#include "end_to_end/expectations.h"
#include "end_to_end/package_records.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

/// Packs one DVI with a DAG name and these lines as its header, and returns its port records.
std::string packed_ports(std::string_view lines) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net") + std::string(lines));
  EXPECT_EQ(run_tool({"-d", "in", "-f", "net.bin"}, folder.path()).status, 0);
  return folder.read("net.bin").substr(168);
}

TEST(PortDescription, EveryMacroFillsItsField) {
  expect_bytes(packed_ports("/* net HMB_output out */\n"
                            "#define net_out_pflip 1\n"
                            "#define net_out_dflip 0\n"
                            "#define net_out_vflip 3\n"
                            "#define net_out_hflip 2\n"
                            "#define net_out_drotate 1\n"
                            "#define net_out_is_bitvector 1\n"
                            "#define net_out_pflip_bit_offset 15\n"
                            "#define net_out_dflip_bit_offset 14\n"
                            "#define net_out_vflip_bit_offset 13\n"
                            "#define net_out_hflip_bit_offset 12\n"
                            "#define net_out_drotate_bit_offset 11\n"
                            "#define net_out_expbits 260\n"
                            "#define net_out_expoffset -3\n"
                            "#define net_out_datasize 16\n"
                            "#define net_out_sign 1\n"
                            "#define net_out_dram_size_num_bytes 8\n"
                            "#define net_out_dram_format 7\n"
                            "#define net_out_dpitch_num_bytes 6\n"
                            "#define net_out_P 1\n"
                            "#define net_out_D 2\n"
                            "#define net_out_H 3\n"
                            "#define net_out_W 4\n"
                            "#define net_out_dbase_byte_offset 5\n"
                            "#define net_out_qubrix_demangled_name \"a/b/c\"\n"),
               port_record({.port_name = "out",
                            .layer_name = "a/b/c",
                            .P = 1,
                            .D = 2,
                            .H = 3,
                            .W = 4,
                            .pitch = 6,
                            .dram_format = 7,
                            .flags = 0x2B,  // pflip, vflip, drotate, bitvector
                            .drotate_bit_offset = 11,
                            .hflip_bit_offset = 12,
                            .vflip_bit_offset = 13,
                            .dflip_bit_offset = 14,
                            .pflip_bit_offset = 15,
                            .sign = 1,
                            .datasize = 16,
                            .expoffset = 0xFD,
                            .expbits = 4,
                            .port_size = 8,
                            .port_byte_offset = 5}));
}

TEST(PortDescription, EachFlagHasItsBit) {
  const auto flag = [](const std::string& macro) {
    return packed_ports("/* HMB_input a */\n#define net_a_" + macro + " 1\n");
  };
  expect_bytes(flag("is_bitvector"), port_record({.port_name = "a", .flags = 0x01}));
  expect_bytes(flag("drotate"), port_record({.port_name = "a", .flags = 0x02}));
  expect_bytes(flag("hflip"), port_record({.port_name = "a", .flags = 0x04}));
  expect_bytes(flag("vflip"), port_record({.port_name = "a", .flags = 0x08}));
  expect_bytes(flag("dflip"), port_record({.port_name = "a", .flags = 0x10}));
  expect_bytes(flag("pflip"), port_record({.port_name = "a", .flags = 0x20}));
}

TEST(PortDescription, AFlagMacroThatGoesOnWithAnUnderscoreIsAnotherMacro) {
  // As a value of the flag, "_mode" would clear it.
  expect_bytes(packed_ports("/* HMB_input a */\n"
                            "#define net_a_drotate 1\n"
                            "#define net_a_drotate_mode 1\n"
                            "#define net_a_drotate_bit_offset 3\n"
                            "#define net_a_hflip 1\n"
                            "#define net_a_hflip_mode 1\n"
                            "#define net_a_vflip 1\n"
                            "#define net_a_vflip_mode 1\n"
                            "#define net_a_dflip 1\n"
                            "#define net_a_dflip_mode 1\n"
                            "#define net_a_pflip 1\n"
                            "#define net_a_pflip_mode 1\n"),
               port_record({.port_name = "a", .flags = 0x3E, .drotate_bit_offset = 3}));
  // Without a word after the underscore, the line is read as the flag.
  expect_bytes(packed_ports("/* HMB_input a */\n#define net_a_hflip 1\n#define net_a_hflip_\n"),
               port_record({.port_name = "a"}));
}

TEST(PortDescription, AFlagMacroThatGoesOnOtherwiseTakesTheRestAsValue) {
  expect_bytes(packed_ports("/* HMB_input a */\n#define net_a_hflip1 0\n"
                            "#define net_a_vflip 1\n#define net_a_vflipx 1\n"),
               port_record({.port_name = "a", .flags = 0x04}));
}

TEST(PortDescription, WithoutMacrosHasItsNameOnly) {
  expect_bytes(packed_ports("/* HMB_input a */\n/* HMB_input b */\n#define net_b_W 2\n"),
               port_record({.port_name = "a"}) + port_record({.port_name = "b", .W = 2}));
}

TEST(PortDescription, NeitherBlankLinesNorUnknownMacrosEndIt) {
  expect_bytes(packed_ports("/* HMB_input a */\n \t\r\n\n#define net_a_W 1\n\n"
                            "/* net_a_ unknown */\n#define net_a_H 2"),
               port_record({.port_name = "a", .H = 2, .W = 1}));
}

TEST(PortDescription, ALineWithoutItsMarkerEndsIt) {
  expect_bytes(packed_ports("/* HMB_input a */\n#define net_a_W 1\n"
                            "/* the height */\n#define net_a_H 2\n"),
               port_record({.port_name = "a", .W = 1}));
  expect_bytes(packed_ports("/* HMB_input a */\n#define a_W 1\n#define net_a_H 2\n"),
               port_record({.port_name = "a"}));
}

TEST(PortDescription, ALineWithMarkerAndKeywordBeginsTheNextPort) {
  expect_bytes(packed_ports("/* HMB_input a */\n#define net_a_W 1\n"
                            "#define net_a_HMB_input b\n#define net_b_W 2\n"),
               port_record({.port_name = "a", .W = 1}) + port_record({.port_name = "b", .W = 2}));
}

TEST(PortDescription, AKeywordWithNothingAfterItEndsABlockAndBeginsNone) {
  expect_bytes(packed_ports("/* HMB_input a */\n#define net_a_ HMB_input\n#define net_a_W 1\n"),
               port_record({.port_name = "a"}));
}

TEST(PortDescription, TheKeywordIsFoundInsideALongerWord) {
  expect_bytes(packed_ports("#define dag0_HMB_input_0 data\n#define dag0__0_W 5\n"),
               port_record({.port_name = "_0", .W = 5}));
}

TEST(PortDescription, AMacroThatGoesOnAfterItsNameTakesTheRestAsValue) {
  expect_bytes(packed_ports("/* HMB_input a */\n#define net_a_W 7\n#define net_a_Wx 5\n"),
               port_record({.port_name = "a", .W = 0}));
}

TEST(PortDescription, OnlyTheFirstPlaceOfAMacroOnALineCounts) {
  expect_bytes(packed_ports("/* HMB_input a */\nnet_a_W 1 net_a_W 2\n"),
               port_record({.port_name = "a", .W = 1}));
}

TEST(PortDescription, TheLaterOfTwoLinesWins) {
  expect_bytes(packed_ports("/* HMB_input a */\n#define net_a_hflip 1\n#define net_a_hflip 0\n"
                            "#define net_a_W 1\n#define net_a_W 2\n"),
               port_record({.port_name = "a", .W = 2}));
}

TEST(PortDescription, NumbersAreDecimalAndCutToTheirField) {
  expect_bytes(packed_ports("/* HMB_input a */\n"
                            "#define net_a_W 0x20\n"
                            "#define net_a_H 12abc\n"
                            "#define net_a_D 4294967299\n"
                            "#define net_a_P -1\n"
                            "#define net_a_dram_format 258\n"
                            "#define net_a_expoffset -1\n"
                            "#define net_a_sign\t=\t:1\n"),
               port_record({.port_name = "a",
                            .P = 0xFFFFFFFF,
                            .D = 3,
                            .H = 12,
                            .W = 0,
                            .dram_format = 2,
                            .sign = 1}));
}

TEST(PortDescription, ALayerNameIsTheFirstWordWithItsSlashes) {
  const auto layer = [](const std::string& value) {
    return packed_ports("/* HMB_input a */\n#define net_a_qubrix_demangled_name " + value + "\n");
  };
  expect_bytes(layer("a/b/c"), port_record({.port_name = "a", .layer_name = "a/b/c"}));
  expect_bytes(layer("\"a b\""), port_record({.port_name = "a", .layer_name = "a"}));
  expect_bytes(layer("/* none */"), port_record({.port_name = "a", .layer_name = "/"}));
  expect_bytes(layer("\"x\"\r"), port_record({.port_name = "a", .layer_name = "x"}));
  expect_bytes(layer("x\r"), port_record({.port_name = "a", .layer_name = "x\r"}));
  expect_bytes(layer("\"\""), port_record({.port_name = "a"}));
}

TEST(PortDescription, ACarriageReturnStaysInAPortNameAtTheEndOfALine) {
  expect_bytes(packed_ports("// HMB_input a\r\n#define net_a_W 1\r\n"
                            "/* HMB_output b */\r\n#define net_b_W 2\r\n"),
               port_record({.port_name = "a\r"}) + port_record({.port_name = "b", .W = 2}));
}

TEST(PortDescription, HighBytesAndNuls) {
  const std::string nul(1, '\0');
  expect_bytes(packed_ports("/* HMB_input p\xE9 */\n#define net_p\xE9_W 5\n"),
               port_record({.port_name = "p\xE9", .W = 5}));
  // The keyword is searched in the whole line, but a token only up to the NUL.
  expect_bytes(packed_ports("/* " + nul + " HMB_input a */\n" + "#define net_a_W 1" + nul + "2\n" +
                            "#define net_a_H " + nul + "3\n" + nul + "net_a_D 4\n"),
               port_record({.port_name = "a", .W = 1}));
  expect_bytes(packed_ports("/* HMB_input " + nul + "a */\n"), "");
}

}  // namespace
}  // namespace morvane::test

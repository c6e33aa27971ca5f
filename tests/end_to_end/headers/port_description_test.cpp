// Which ports the lines of a header give.
#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

/// Packs one DVI with a DAG name and these lines as its header, and returns its port records.
std::string packed_ports(const std::string& lines) {
  return packed(dag_lines("net") + lines).substr(156);
}

TEST(PortDescription, EachMacroFillsItsFieldOnlyAndTheFirstOfTheTableDecidesALine) {
  struct macro {
    const char* text;
    port_fields fields;
  };
  // In the order in which they are tried.
  macro macros[] = {
      {"_dbase_byte_offset 287454020", {.port_byte_offset = 0x11223344}},
      {"_is_bitvector 1", {.flags = 0x01}},
      {"_W 287454021", {.W = 0x11223345}},
      {"_H 287454022", {.H = 0x11223346}},
      {"_D 287454023", {.D = 0x11223347}},
      {"_P 287454024", {.P = 0x11223348}},
      {"_dpitch_num_bytes 287454025", {.pitch = 0x11223349}},
      {"_dram_format 261", {.dram_format = 5}},
      {"_dram_size_num_bytes 287454026", {.port_size = 0x1122334A}},
      {"_sign 257", {.sign = 1}},
      {"_datasize 258", {.datasize = 2}},
      {"_expoffset -3", {.expoffset = 0xFD}},
      {"_expbits 260", {.expbits = 4}},
      {"_drotate_bit_offset 287454027", {.drotate_bit_offset = 0x1122334B}},
      {"_hflip_bit_offset 287454028", {.hflip_bit_offset = 0x1122334C}},
      {"_vflip_bit_offset 287454029", {.vflip_bit_offset = 0x1122334D}},
      {"_dflip_bit_offset 287454030", {.dflip_bit_offset = 0x1122334E}},
      {"_pflip_bit_offset 287454031", {.pflip_bit_offset = 0x1122334F}},
      {"_drotate 1", {.flags = 0x02}},
      {"_hflip 1", {.flags = 0x04}},
      {"_vflip 1", {.flags = 0x08}},
      {"_dflip 1", {.flags = 0x10}},
      {"_pflip 1", {.flags = 0x20}},
      {"_qubrix_demangled_name \"x/y\"", {.layer_name = "x/y"}},
  };
  std::string lines;
  std::string ports;
  std::string after;  // a line of the macro after this one
  for (std::size_t i = std::size(macros); i-- > 0;) {
    const std::string name = "p" + std::to_string(i);
    const std::string line = "net_" + name + macros[i].text;
    lines += "/* HMB_input " + name + " */\n" + (after.empty() ? "" : "net_" + name + after + " ") +
             line + "\n";
    macros[i].fields.port_name = name;
    ports += port_record(macros[i].fields);
    after = macros[i].text;
  }
  expect_bytes(packed_ports(lines), ports);
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
  // Anywhere on the line; except for the bitvector.
  expect_bytes(packed_ports("HMB_input a\nnet_a_hflip 1 /* a_hflip_x */\n"
                            "net_a_vflip 1 /* a_vflip_ */\nnet_a_is_bitvector 1 a_is_bitvector_x\n"
                            "HMB_input b\nnet_b_is_bitvector 1\nnet_b_is_bitvector_x 1\n"),
               port_record({.port_name = "a", .flags = 0x09}) + port_record({.port_name = "b"}));
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

TEST(PortDescription, ItsMarkerIsItsNameBetweenUnderscores) {
  for (const char* line : {"_a_", "a data_a_x", "net_a_x HMB_output"}) {
    expect_bytes(packed_ports("HMB_input a\n" + std::string(line) + "\nnet_a_W 1\n"),
                 port_record({.port_name = "a", .W = 1}));
  }
  for (const char* line : {"neta_x", "net_ax", "_a", "a_", "net_b"}) {
    expect_bytes(packed_ports("HMB_input a\n" + std::string(line) + "\nnet_a_W 1\n"),
                 port_record({.port_name = "a"}));
  }
}

TEST(PortDescription, ItsNameMayOverlapItselfOrBePartOfAnother) {
  expect_bytes(packed_ports("HMB_input aa\n#define _aa_x aaa_W 5\n"),
               port_record({.port_name = "aa", .W = 5}));
  expect_bytes(packed_ports("HMB_input a\nnet_a_W 1\nnet_a_b_W 2\nHMB_input a_b\nnet_a_b_W 3\n"),
               port_record({.port_name = "a", .W = 1}) + port_record({.port_name = "a_b", .W = 3}));
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

TEST(PortDescription, ItsNameIsTheFirstWordAfterTheKeyword) {
  expect_bytes(packed_ports("HMB_input\n// see HMB_input \"data\", 5\n"),
               port_record({.port_name = "data"}));
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

TEST(PortDescription, AMacroWithNothingAfterItIsPassedOver) {
  expect_bytes(packed_ports("HMB_input a\nnet_a_W 9 net_a_dbase_byte_offset\nnet_a_W\n"),
               port_record({.port_name = "a", .W = 9}));
}

TEST(PortDescription, TheLaterOfTwoLinesWins) {
  expect_bytes(packed_ports("/* HMB_input a */\n#define net_a_hflip 1\n#define net_a_hflip 0\n"
                            "#define net_a_vflip 1\n#define net_a_vflip 2\n"
                            "#define net_a_dflip 2\n#define net_a_dflip 3\n"
                            "#define net_a_W 1\n#define net_a_W 2\n"
                            "net_a_qubrix_demangled_name long/name\n"
                            "net_a_qubrix_demangled_name b\n"),
               port_record({.port_name = "a", .layer_name = "b", .W = 2, .flags = 0x10}));
}

TEST(PortDescription, NumbersAreDecimalAndCutToTheirField) {
  expect_bytes(packed_ports("/* HMB_input a */\n"
                            "#define net_a_W 0x20\n"
                            "#define net_a_H 12abc\n"
                            "#define net_a_D 4294967299\n"
                            "#define net_a_P -1\n"
                            "#define net_a_dram_format 258\n"
                            "#define net_a_expoffset -1\n"
                            "#define net_a_dpitch_num_bytes (5)\n"
                            "#define net_a_datasize \v\f+8\n"
                            "#define net_a_sign\t=\t:/*,;\"1\n"),
               port_record({.port_name = "a",
                            .P = 0xFFFFFFFF,
                            .D = 3,
                            .H = 12,
                            .W = 0,
                            .dram_format = 2,
                            .sign = 1,
                            .datasize = 8}));
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

#include "headers/port_descriptions.h"

#include <gtest/gtest.h>

#include "printed_text.h"
#include "sample_records.h"

namespace morvane {
namespace {

using test::length_message;
using test::printed_by;
using test::record_text;

using ports_list = std::vector<port_desc>;

ports_list parsed_ports(std::string_view header, const port_class& ports_class = input_ports) {
  ports_list ports;
  EXPECT_EQ(parse_port_descriptions(ports, header, ports_class), 0);
  return ports;
}

/// The only port of a header, "a", with these lines in its block.
port_desc parsed_a(std::string_view block) {
  const ports_list ports = parsed_ports(std::string("/* net HMB_input a */\n").append(block));
  EXPECT_EQ(ports.size(), 1U);
  return ports.empty() ? port_desc{} : ports[0];
}

std::vector<std::string> names_of(const ports_list& ports) {
  std::vector<std::string> names;
  for (const port_desc& port : ports) {
    names.emplace_back(text_of(port.port_name));
  }
  return names;
}

using names = std::vector<std::string>;

TEST(ParsePortDescriptions, FindsNothingWithoutTheKeyword) {
  EXPECT_TRUE(parsed_ports("").empty());
  EXPECT_TRUE(parsed_ports("#define net_DAG_NAME net\n/* net HMB_output a */\n").empty());
}

TEST(ParsePortDescriptions, ReadsThePortsOfItsClassInTheirOrder) {
  const char* header =
      "/* net HMB_input b */\n#define net_b_W 1\n"
      "/* net HMB_output c */\n#define net_c_W 2\n"
      "/* net HMB_input a */\n#define net_a_W 3\n";
  const ports_list inputs = parsed_ports(header, input_ports);
  EXPECT_EQ(names_of(inputs), (names{"b", "a"}));
  EXPECT_EQ(inputs[0].W, 1U);
  EXPECT_EQ(inputs[1].W, 3U);
  const ports_list outputs = parsed_ports(header, output_ports);
  EXPECT_EQ(names_of(outputs), names{"c"});
  EXPECT_EQ(outputs[0].W, 2U);
}

TEST(ParsePortDescriptions, LeavesAPortWithNothingButItsNameAtTheDefaults) {
  std::string expected(1080, '\0');
  expected.replace(44, 4, "\xFF\xFF\xFF\xFF");
  expected.replace(56, 4, "data");
  const ports_list ports = parsed_ports("/* net HMB_input data */\n/* net HMB_input b */\n");
  ASSERT_EQ(ports.size(), 2U);
  EXPECT_EQ(record_text(ports[0]), expected);
}

struct port_macro_case {
  const char* suffix;
  const char* value;
  std::size_t offset;
  std::string bytes;
};

/// In the order in which they are tried.
const port_macro_case port_macro_cases[] = {
    {"_dbase_byte_offset", "287454020", 52, "\x44\x33\x22\x11"},
    {"_is_bitvector", "1", 21, "\x01"},
    {"_W", "287454021", 12, "\x45\x33\x22\x11"},
    {"_H", "287454022", 8, "\x46\x33\x22\x11"},
    {"_D", "287454023", 4, "\x47\x33\x22\x11"},
    {"_P", "287454024", 0, "\x48\x33\x22\x11"},
    {"_dpitch_num_bytes", "287454025", 16, "\x49\x33\x22\x11"},
    {"_dram_format", "261", 20, "\x05"},
    {"_dram_size_num_bytes", "287454026", 48, "\x4A\x33\x22\x11"},
    {"_sign", "257", 44, "\x01"},
    {"_datasize", "258", 45, "\x02"},
    {"_expoffset", "-3", 46, "\xFD"},
    {"_expbits", "260", 47, "\x04"},
    {"_drotate_bit_offset", "287454027", 24, "\x4B\x33\x22\x11"},
    {"_hflip_bit_offset", "287454028", 28, "\x4C\x33\x22\x11"},
    {"_vflip_bit_offset", "287454029", 32, "\x4D\x33\x22\x11"},
    {"_dflip_bit_offset", "287454030", 36, "\x4E\x33\x22\x11"},
    {"_pflip_bit_offset", "287454031", 40, "\x4F\x33\x22\x11"},
    {"_drotate", "1", 21, "\x02"},
    {"_hflip", "1", 21, "\x04"},
    {"_vflip", "1", 21, "\x08"},
    {"_dflip", "1", 21, "\x10"},
    {"_pflip", "1", 21, "\x20"},
    {"_qubrix_demangled_name", "\"x/y\"", 568, "x/y"},
};

std::string define_line(const port_macro_case& macro) {
  return std::string("#define net_a").append(macro.suffix).append(" ").append(macro.value) + "\n";
}

TEST(ParsePortDescriptions, StoresEachMacroInItsFieldOnly) {
  const std::string empty = record_text(parsed_a(""));
  for (const port_macro_case& macro : port_macro_cases) {
    std::string expected = empty;
    expected.replace(macro.offset, macro.bytes.size(), macro.bytes);
    EXPECT_EQ(record_text(parsed_a(define_line(macro))), expected) << macro.suffix;
  }
}

TEST(ParsePortDescriptions, LetsTheEarlierMacroOfTheOrderDecideALine) {
  const port_macro_case* earlier = nullptr;
  for (const port_macro_case& macro : port_macro_cases) {
    if (earlier != nullptr) {
      std::string line = define_line(macro);
      line.pop_back();
      EXPECT_EQ(record_text(parsed_a(line + " " + define_line(*earlier))),
                record_text(parsed_a(define_line(*earlier))))
          << macro.suffix;
    }
    earlier = &macro;
  }
}

TEST(ParsePortDescriptions, ReadsDecimalPrefixesOnly) {
  EXPECT_EQ(parsed_a("net_a_W 0x20\n").W, 0U);
  EXPECT_EQ(parsed_a("net_a_W 12abc\n").W, 12U);
  EXPECT_EQ(parsed_a("net_a_W abc\n").W, 0U);
  EXPECT_EQ(parsed_a("net_a_W -1\n").W, 4294967295U);
  EXPECT_EQ(parsed_a("net_a_expoffset -3\n").expoffset, -3);
  EXPECT_EQ(parsed_a("net_a_expoffset 5\nnet_a_expoffset -1\n").expoffset, -1);
}

TEST(ParsePortDescriptions, TakesTheLowestBitOfAFlag) {
  EXPECT_EQ(parsed_a("net_a_hflip 3\n").flags, MORVANE_PORT_HFLIP);
  EXPECT_EQ(parsed_a("net_a_hflip 1\nnet_a_hflip 2\n").flags, 0);
}

TEST(ParsePortDescriptions, TellsAFlagFromItsBitOffset) {
  const port_desc with_offset = parsed_a("net_a_drotate_bit_offset 3\n");
  EXPECT_EQ(with_offset.drotate_bit_offset, 3U);
  EXPECT_EQ(with_offset.flags, 0);
  EXPECT_EQ(parsed_a("net_a_drotate 1\n").flags, MORVANE_PORT_DROTATE);
}

TEST(ParsePortDescriptions, TakesTheRestOfALongerMacroAsTheValue) {
  EXPECT_EQ(parsed_a("net_a_W 9\nnet_a_Wx 5\n").W, 0U);
}

TEST(ParsePortDescriptions, LetsALaterMacroWin) {
  EXPECT_EQ(parsed_a("net_a_W 1\nnet_a_W 2\n").W, 2U);
  const port_desc port =
      parsed_a("net_a_qubrix_demangled_name long/name\nnet_a_qubrix_demangled_name b\n");
  EXPECT_EQ(record_text(port).substr(568), std::string("b").append(511, '\0'));
}

TEST(ParsePortDescriptions, KeepsTheSlashesButNotTheQuotesOfALayerName) {
  EXPECT_STREQ(parsed_a("net_a_qubrix_demangled_name a/b/c\n").layer_name, "a/b/c");
  EXPECT_STREQ(parsed_a("net_a_qubrix_demangled_name \"a/b c\"\n").layer_name, "a/b");
}

TEST(ParsePortDescriptions, PassesOverBlankLinesInsideABlock) {
  EXPECT_EQ(parsed_a("\nnet_a_W 1\n \t\n\r\nnet_a_H 2\n").H, 2U);
}

TEST(ParsePortDescriptions, IgnoresMacrosFromALineWithoutMarkerOn) {
  EXPECT_EQ(parsed_a("#define a_W 1\n").W, 0U);
  const port_desc port = parsed_a("net_a_W 1\n/* other */\nnet_a_H 2\n");
  EXPECT_EQ(port.W, 1U);
  EXPECT_EQ(port.H, 0U);
}

TEST(ParsePortDescriptions, BeginsANewPortAtAMarkedLineWithTheKeyword) {
  EXPECT_EQ(names_of(parsed_ports("HMB_input a\nnet_a_W 1 HMB_input b\nnet_b_W 2\n")),
            (names{"a", "b"}));
}

TEST(ParsePortDescriptions, EndsABlockAtTheKeywordWithoutAName) {
  const port_desc port = parsed_a("net_a_W 1\nnet_a_HMB_input\nnet_a_H 2\n");
  EXPECT_EQ(port.W, 1U);
  EXPECT_EQ(port.H, 0U);
}

TEST(ParsePortDescriptions, DoesNotEndABlockAtTheKeywordOfTheOtherClass) {
  EXPECT_EQ(parsed_a("net_a_W 1\nnet_a_x HMB_output\nnet_a_H 2\n").H, 2U);
}

TEST(ParsePortDescriptions, TakesTheFirstTokenAfterTheKeywordForTheName) {
  EXPECT_EQ(names_of(parsed_ports("HMB_input\n// see HMB_input \"data\", 5\n")), names{"data"});
  EXPECT_EQ(names_of(parsed_ports("#define dag0_HMB_input_0 x\n")), names{"_0"});
}

TEST(ParsePortDescriptions, FindsMacrosOfANameThatOverlapsItself) {
  EXPECT_EQ(parsed_ports("HMB_input aa\n#define _aa_x aaa_W 5\n").at(0).W, 5U);
}

TEST(ParsePortDescriptions, ReadsAPortWhoseNameIsPartOfAnother) {
  const ports_list ports =
      parsed_ports("HMB_input a\nnet_a_W 1\nnet_a_b_W 2\nHMB_input a_b\nnet_a_b_W 3");
  EXPECT_EQ(names_of(ports), (names{"a", "a_b"}));
  EXPECT_EQ(ports[0].W, 1U);
  EXPECT_EQ(ports[1].W, 3U);
}

TEST(ParsePortDescriptions, TakesAPortNameOf511Characters) {
  const std::string name(511, 'n');
  const ports_list ports = parsed_ports("HMB_input " + name + "\n_" + name + "_W 5\n");
  EXPECT_EQ(names_of(ports), names{name});
  EXPECT_EQ(ports[0].W, 5U);
}

TEST(ParsePortDescriptions, StopsAtAPortNameOf512Characters) {
  const std::string name(512, 'n');
  ports_list ports;
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(
                  parse_port_descriptions(
                      ports, "HMB_input a\nHMB_input " + name + "\nHMB_input b\n", input_ports),
                  -1);
            }),
            length_message("IO_NAME", name));
  EXPECT_EQ(names_of(ports), names{"a"});
}

TEST(ParsePortDescriptions, StopsAtALayerNameOf512Characters) {
  const std::string name(512, 'l');
  ports_list ports;
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(parse_port_descriptions(ports,
                                                "HMB_input a\nHMB_input b\n"
                                                "net_b_qubrix_demangled_name " +
                                                    name + "\nHMB_input c\n",
                                                input_ports),
                        -1);
            }),
            length_message("IO_DEMNGL_NAME", name));
  EXPECT_EQ(names_of(ports), names{"a"});
}

TEST(ParsePortDescriptions, KeepsThePortsThatAreInTheList) {
  ports_list ports{test::port_named("before")};
  EXPECT_EQ(parse_port_descriptions(ports, "HMB_input a\n", input_ports), 0);
  EXPECT_EQ(names_of(ports), (names{"before", "a"}));
}

}  // namespace
}  // namespace morvane

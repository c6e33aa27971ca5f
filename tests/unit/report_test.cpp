#include "inspect/report.h"

#include <gtest/gtest.h>

#include "printed_text.h"
#include "sample_records.h"

namespace morvane {
namespace {

using test::dvi_named;
using test::list_of;
using test::port_named;
using test::printed_by;

TEST(Report, ShowsThePackageHeader) {
  EXPECT_EQ(printed_by([] {
              print_pkg_header({0x02010006, 0x0B3B3814, 2});
            }),
            "version 2.1.6 ( HASH b3b3814 ) dvi_num: 2\n");
  EXPECT_EQ(printed_by([] {
              print_pkg_header({0, 0, 0});
            }),
            "version 0.0.0 ( HASH 0000000 ) dvi_num: 0\n");
  EXPECT_EQ(printed_by([] {
              print_pkg_header({0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF});
            }),
            "version 255.255.65535 ( HASH ffffffff ) dvi_num: 4294967295\n");
}

TEST(Report, ShowsADviInTheTable) {
  dvi_desc dvi = dvi_named("net");
  dvi.dvi_id = 1;
  dvi.vproc_id = 255;
  dvi.dvi_ppv = 3;
  dvi.dvi_img_vaddr = 4294967295;
  dvi.dvi_img_size = 5;
  dvi.dvi_dag_vaddr = 6;
  dvi.input_num = 7;
  dvi.output_num = 8;
  dvi.dvi_pkg_size = 9;
  EXPECT_EQ(printed_by([&] { print_dvi_description(dvi); }),
            "dvi_id: 1\t dvi_img_vaddr: 4294967295\t dvi_img_size: 5\t dvi_dag_vaddr: 6\t "
            "input_num: 7\t output_num: 8\t dvi_pkg_size: 9\t dvi_ppv: 3\t vproc_id: 255\t "
            "dag_name: net\n");
}

TEST(Report, ShowsTheHeadingOfADviWithoutTabs) {
  dvi_desc dvi = dvi_named("net");
  dvi.dvi_id = 3;
  dvi.input_num = 1;
  dvi.output_num = 2;
  EXPECT_EQ(printed_by([&] { print_dvi_heading(dvi); }),
            "dvi_id: 3 dag_name: net input_num: 1 output_num: 2\n");
}

TEST(Report, ShowsEveryFieldOfAPort) {
  port_desc port = port_named("data", "conv1/relu");
  port.P = 1;
  port.D = 2;
  port.H = 3;
  port.W = 4;
  port.pitch = 5;
  port.dram_format = 6;
  port.flags = MORVANE_PORT_BITVECTOR;
  port.drotate_bit_offset = 11;
  port.hflip_bit_offset = 10;
  port.vflip_bit_offset = 9;
  port.dflip_bit_offset = 8;
  port.pflip_bit_offset = 7;
  port.sign = 12;
  port.datasize = 255;
  port.expoffset = -3;
  port.expbits = 15;
  port.port_size = 16;
  port.port_byte_offset = 4294967295;
  EXPECT_EQ(printed_by([&] { print_port_descriptions(list_of<port_desc>({port}), input_ports); }),
            "input_id: 0\t port_size: 16\t port_byte_offset: 4294967295\t bitvector: 1\t "
            "dim: (P, D, H, W) = ( 1, 2, 3, 4)\tpitch: 5\tdram_format: 6\t"
            "data_format: (12, 255, -3, 15)\tport rotate bit (p, d, v, h, r): (0, 0, 0, 0, 0)\t"
            "port rotate offset(p, d, v, h, r): (7, 8, 9, 10, 11)\tport_name: data\t"
            "(layer_name: conv1/relu)\n");
}

TEST(Report, EndsAPortWithoutLayerNameAfterATab) {
  EXPECT_EQ(printed_by([] {
              print_port_descriptions(list_of<port_desc>({port_named("data")}), output_ports);
            }),
            "output_id: 0\t port_size: 0\t port_byte_offset: 0\t bitvector: 0\t "
            "dim: (P, D, H, W) = ( 0, 0, 0, 0)\tpitch: 0\tdram_format: 0\t"
            "data_format: (0, 0, 0, 0)\tport rotate bit (p, d, v, h, r): (0, 0, 0, 0, 0)\t"
            "port rotate offset(p, d, v, h, r): (0, 0, 0, 0, 0)\tport_name: data\t\n");
}

TEST(Report, ShowsTheFlagsOfAPortFromTheLastToTheFirst) {
  const struct {
    std::uint8_t flags;
    const char* bitvector;
    const char* others;
  } rows[] = {
      {0x01, "bitvector: 1\t", "(0, 0, 0, 0, 0)\t"}, {0x02, "bitvector: 0\t", "(0, 0, 0, 0, 1)\t"},
      {0x04, "bitvector: 0\t", "(0, 0, 0, 1, 0)\t"}, {0x08, "bitvector: 0\t", "(0, 0, 1, 0, 0)\t"},
      {0x10, "bitvector: 0\t", "(0, 1, 0, 0, 0)\t"}, {0x20, "bitvector: 0\t", "(1, 0, 0, 0, 0)\t"},
      {0xC0, "bitvector: 0\t", "(0, 0, 0, 0, 0)\t"}, {0xFF, "bitvector: 1\t", "(1, 1, 1, 1, 1)\t"},
  };
  for (const auto& row : rows) {
    port_desc port{};
    port.flags = row.flags;
    const std::string line =
        printed_by([&] { print_port_descriptions(list_of<port_desc>({port}), input_ports); });
    EXPECT_NE(line.find(std::string("\t ") + row.bitvector), std::string::npos) << line;
    EXPECT_NE(line.find(std::string("\tport rotate bit (p, d, v, h, r): ") + row.others),
              std::string::npos)
        << line;
  }
}

TEST(Report, NumbersThePortsOfAList) {
  const std::string lines = printed_by([] {
    print_port_descriptions(list_of<port_desc>({port_named("a"), port_named("b")}), output_ports);
  });
  EXPECT_TRUE(lines.starts_with("output_id: 0\t"));
  EXPECT_NE(lines.find("\tport_name: a\t\noutput_id: 1\t"), std::string::npos);
  EXPECT_TRUE(lines.ends_with("\tport_name: b\t\n"));
}

TEST(Report, ShowsNothingForEmptyLists) {
  EXPECT_EQ(printed_by([] {
              print_port_descriptions({}, input_ports);
              print_variables({});
              print_smbs({});
            }),
            "");
}

TEST(Report, ShowsTheHeadingOfAVprocAndAnEmptyLine) {
  dvi_desc dvi = dvi_named("net");
  dvi.vproc_id = 4;
  EXPECT_EQ(printed_by([&] {
              print_vproc_heading(dvi, {2, 3, 999});
            }),
            "vproc_id: 4 dag_name: net variable_num: 2 smb_num: 3\n\n");
}

TEST(Report, ShowsVariables) {
  EXPECT_EQ(printed_by([] {
              print_variables(list_of<var_desc>(
                  {test::variable_of("gain", 8, 16), test::variable_of("bias", 0, 4294967295)}));
            }),
            "var: gain\t boffset = 8\t bsize = 16\nvar: bias\t boffset = 0\t bsize = 4294967295\n");
}

TEST(Report, ShowsSmbsWithTheirPosition) {
  EXPECT_EQ(printed_by([] {
              print_smbs(list_of<smb_desc>({test::smb_of("a", 64), test::smb_of("b", 0)}));
            }),
            "smb_id: 0\t vbase_byte_offset: 64\t smb_name: a\n"
            "smb_id: 1\t vbase_byte_offset: 0\t smb_name: b\n");
}

TEST(Report, EndsNamesAtTheWidthOfTheirFields) {
  const std::string name(512, 'p');
  const std::string layer_name(512, 'l');
  const std::string line = printed_by([&] {
    print_port_descriptions(list_of<port_desc>({port_named(name, layer_name)}), input_ports);
  });
  EXPECT_TRUE(line.ends_with("\tport_name: " + name + "\t(layer_name: " + layer_name + ")\n"));
}

}  // namespace
}  // namespace morvane

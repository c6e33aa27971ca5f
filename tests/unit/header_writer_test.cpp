#include "inspect/header_writer.h"

#include <gtest/gtest.h>

#include "harness/scratch_folder.h"
#include "printed_text.h"
#include "sample_records.h"

namespace morvane {
namespace {

using test::dvi_named;
using test::list_of;
using test::port_named;
using test::printed_by;
using test::scratch_folder;

class HeaderWriter : public testing::Test {
 protected:
  /// The content of the header.
  [[nodiscard]] std::string written() const { return folder.read("_net.h"); }

  scratch_folder folder;
  parse_folder output{.path = "parse", .handle = open_folder(folder.path())};
  parse_folder missing{.path = "missing"};
  dvi_desc net = dvi_named("net");
};

TEST_F(HeaderWriter, DeletesTheHeadersOfThePackageAndNoOtherFile) {
  folder.write("_a.h", "old");
  folder.write("_b.h", "old");
  folder.write("_c.h", "kept");
  remove_headers(output, list_of<dvi_desc>({dvi_named("a"), dvi_named("b")}));
  EXPECT_EQ(folder.files(), (std::map<std::string, std::string>{{"_c.h", "kept"}}));
}

TEST_F(HeaderWriter, DeletesTheHeaderOfADviThatThePackageLacks) {
  folder.write("_.h", "old");
  claimed_list<dvi_desc> dvis = list_of<dvi_desc>({dvi_named("a")});
  dvis.count = 1000000;
  remove_headers(output, dvis);
  EXPECT_FALSE(folder.exists("_.h"));
}

TEST_F(HeaderWriter, DeletesNothingWithoutDvis) {
  folder.write("_.h", "kept");
  remove_headers(output, {});
  EXPECT_EQ(folder.read("_.h"), "kept");
}

TEST_F(HeaderWriter, WritesADefineLineWithTabs) {
  std::string lines = "before\n";
  append_define_line(lines, "net", "_image_size", "100", false);
  append_define_line(lines, "net", "_DAG_NAME", "net", true);
  append_define_line(lines, "p", "_qubrix_demangled_name", "", true);
  EXPECT_EQ(lines,
            "before\n#define\tnet_image_size\t100\n#define\tnet_DAG_NAME\t\"net\"\n"
            "#define\tp_qubrix_demangled_name\t\"\"\n");
}

TEST_F(HeaderWriter, WritesTheDagBlockOfEveryDvi) {
  net.dvi_ppv = 255;
  net.dvi_img_vaddr = 4294967295;
  net.dvi_img_size = 100;
  net.dvi_dag_vaddr = 65536;
  const auto dvis = list_of<dvi_desc>({net, dvi_named("b")});
  write_dag_blocks(output, dvis);
  EXPECT_EQ(written(),
            "#define\tnet_DAG_NAME\t\"net\"\n"
            "#define\tnet_use_ping_pong_vmem\t255\n"
            "#define\tnet_image_start\t4294967295\n"
            "#define\tnet_image_size\t100\n"
            "#define\tnet_dagbin_start\t65536\n");
  EXPECT_EQ(folder.read("_b.h"),
            "#define\tb_DAG_NAME\t\"b\"\n"
            "#define\tb_use_ping_pong_vmem\t0\n"
            "#define\tb_image_start\t0\n"
            "#define\tb_image_size\t0\n"
            "#define\tb_dagbin_start\t0\n");
}

TEST_F(HeaderWriter, WritesNoDagBlockWithoutDvis) {
  write_dag_blocks(output, {});
  EXPECT_TRUE(folder.files().empty());
}

TEST_F(HeaderWriter, WritesEveryMacroOfAPort) {
  port_desc port = port_named("data", "conv1/relu");
  port.P = 1;
  port.D = 2;
  port.H = 3;
  port.W = 4294967295;
  port.pitch = 5;
  port.dram_format = 6;
  port.flags = MORVANE_PORT_BITVECTOR | MORVANE_PORT_HFLIP | MORVANE_PORT_PFLIP;
  port.drotate_bit_offset = 7;
  port.hflip_bit_offset = 8;
  port.vflip_bit_offset = 9;
  port.dflip_bit_offset = 10;
  port.pflip_bit_offset = 11;
  port.sign = 12;
  port.datasize = 13;
  port.expoffset = -14;
  port.expbits = 15;
  port.port_size = 16;
  port.port_byte_offset = 17;
  write_port_blocks(output, net, list_of<port_desc>({port}), input_ports);
  EXPECT_EQ(written(),
            "\n/* net HMB_input data */\n"
            "#define\tnet_data_qubrix_demangled_name\t\"conv1/relu\"\n"
            "#define\tnet_data_is_bitvector\t1\n"
            "#define\tnet_data_dbase_byte_offset\t17\n"
            "#define\tnet_data_drotate_bit_offset\t7\n"
            "#define\tnet_data_hflip_bit_offset\t8\n"
            "#define\tnet_data_vflip_bit_offset\t9\n"
            "#define\tnet_data_dflip_bit_offset\t10\n"
            "#define\tnet_data_pflip_bit_offset\t11\n"
            "#define\tnet_data_W\t4294967295\n"
            "#define\tnet_data_H\t3\n"
            "#define\tnet_data_D\t2\n"
            "#define\tnet_data_P\t1\n"
            "#define\tnet_data_dpitch_num_bytes\t5\n"
            "#define\tnet_data_dram_format\t6\n"
            "#define\tnet_data_dram_size_num_bytes\t16\n"
            "#define\tnet_data_sign\t12\n"
            "#define\tnet_data_datasize\t13\n"
            "#define\tnet_data_expoffset\t-14\n"
            "#define\tnet_data_expbits\t15\n"
            "#define\tnet_data_drotate\t0\n"
            "#define\tnet_data_hflip\t1\n"
            "#define\tnet_data_vflip\t0\n"
            "#define\tnet_data_dflip\t0\n"
            "#define\tnet_data_pflip\t1\n");
}

TEST_F(HeaderWriter, WritesOneBlockPerPortInTheirOrder) {
  write_port_blocks(output, net, list_of<port_desc>({port_named("b"), port_named("a")}),
                    output_ports);
  const std::string text = written();
  EXPECT_TRUE(
      text.starts_with("\n/* net HMB_output b */\n"
                       "#define\tnet_b_qubrix_demangled_name\t\"\"\n"));
  EXPECT_NE(text.find("#define\tnet_b_pflip\t0\n\n/* net HMB_output a */\n"), std::string::npos);
  EXPECT_TRUE(text.ends_with("#define\tnet_a_pflip\t0\n"));
}

TEST_F(HeaderWriter, EndsANameAtTheWidthOfItsField) {
  const dvi_desc longest = dvi_named(std::string(128, 'd'));
  write_smb_blocks(output, longest, list_of<smb_desc>({test::smb_of(std::string(128, 's'), 1)}));
  const std::string dag_name(128, 'd');
  const std::string smb_name(128, 's');
  EXPECT_EQ(folder.read("_" + dag_name + ".h"), "\n/* " + dag_name + " SMB_input " + smb_name +
                                                    " */\n#define\t" + dag_name + "_" + smb_name +
                                                    "_vbase_byte_offset\t1\n");
}

TEST_F(HeaderWriter, WritesTheMacrosOfVariablesWithoutTheDagName) {
  write_variable_blocks(output, net,
                        list_of<var_desc>({test::variable_of("gain", 8, 16),
                                           test::variable_of("bias", 0, 4294967295)}));
  EXPECT_EQ(written(),
            "\n/* $gain */\n#define\tgain_boffset\t8\n#define\tgain_bsize\t16\n"
            "\n/* $bias */\n#define\tbias_boffset\t0\n#define\tbias_bsize\t4294967295\n");
}

TEST_F(HeaderWriter, WritesTheMacroOfSmbs) {
  write_smb_blocks(output, net, list_of<smb_desc>({test::smb_of("a", 64), test::smb_of("b", 0)}));
  EXPECT_EQ(written(),
            "\n/* net SMB_input a */\n#define\tnet_a_vbase_byte_offset\t64\n"
            "\n/* net SMB_input b */\n#define\tnet_b_vbase_byte_offset\t0\n");
}

TEST_F(HeaderWriter, OpensTheHeaderAlsoForNoRecords) {
  write_port_blocks(output, net, {}, input_ports);
  EXPECT_EQ(written(), "");
  EXPECT_EQ(printed_by([&] {
              write_port_blocks(missing, net, {}, input_ports);
              write_variable_blocks(missing, net, {});
              write_smb_blocks(missing, net, {});
            }),
            "can't open file missing/_net.h\ncan't open file missing/_net.h\n"
            "can't open file missing/_net.h\n");
}

TEST_F(HeaderWriter, ReportsALostCallOnceWhateverItsLength) {
  claimed_list<smb_desc> smbs;
  smbs.count = 20000;
  EXPECT_EQ(printed_by([&] { write_smb_blocks(missing, net, smbs); }),
            "can't open file missing/_net.h\n");
}

TEST_F(HeaderWriter, WritesTheBlocksOfRecordsThatThePackageLacks) {
  claimed_list<smb_desc> smbs = list_of<smb_desc>({test::smb_of("a", 64)});
  smbs.count = 20000;
  write_smb_blocks(output, net, smbs);
  std::string expected = "\n/* net SMB_input a */\n#define\tnet_a_vbase_byte_offset\t64\n";
  for (int i = 1; i < 20000; ++i) {
    expected += "\n/* net SMB_input  */\n#define\tnet__vbase_byte_offset\t0\n";
  }
  EXPECT_EQ(written(), expected);
}

}  // namespace
}  // namespace morvane

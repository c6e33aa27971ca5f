#include "format/records.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "sample_records.h"

namespace morvane {
namespace {

using test::record_text;

/// The offset of a field and its expected bytes.
struct placed_field {
  const char* name;
  std::size_t offset;
  std::string bytes;
};

/// Checks that a record consists of these fields, in this order and without padding.
void expect_fields(const std::string& record, const std::vector<placed_field>& fields) {
  std::size_t end = 0;
  for (const placed_field& field : fields) {
    EXPECT_EQ(field.offset, end) << field.name;
    EXPECT_EQ(record.substr(field.offset, field.bytes.size()), field.bytes) << field.name;
    end = field.offset + field.bytes.size();
  }
  EXPECT_EQ(record.size(), end);
}

/// A text or the low bytes of a number, with NULs up to the width of the field.
std::string filled(std::string_view text, std::size_t width) {
  std::string field(text);
  field.resize(width);
  return field;
}

TEST(PkgHeader, StandsInTwelveBytes) {
  const pkg_header header{.version = 0x02010006, .HASH = 0x0B3B3814, .dvi_num = 0x01020304};
  expect_fields(record_text(header), {{"version", 0, std::string("\x06\x00\x01\x02", 4)},
                                      {"HASH", 4, "\x14\x38\x3B\x0B"},
                                      {"dvi_num", 8, "\x04\x03\x02\x01"}});
}

TEST(DviDesc, StandsInItsBytes) {
  dvi_desc dvi = test::dvi_named("net");
  dvi.dvi_id = 0x11;
  dvi.vproc_id = 0x12;
  dvi.dvi_ppv = 0x13;
  dvi.dvi_img_vaddr = 0x21222324;
  dvi.dvi_img_size = 0x31323334;
  dvi.dvi_dag_vaddr = 0x41424344;
  dvi.input_num = 0x51525354;
  dvi.output_num = 0x61626364;
  dvi.dvi_pkg_size = 0x71727374;
  expect_fields(record_text(dvi), {{"dvi_id", 0, "\x11"},
                                   {"vproc_id", 1, "\x12"},
                                   {"dvi_ppv", 2, "\x13"},
                                   {"reserved", 3, filled("", 1)},
                                   {"dvi_img_vaddr", 4, "\x24\x23\x22\x21"},
                                   {"dvi_img_size", 8, "\x34\x33\x32\x31"},
                                   {"dvi_dag_vaddr", 12, "\x44\x43\x42\x41"},
                                   {"input_num", 16, "\x54\x53\x52\x51"},
                                   {"output_num", 20, "\x64\x63\x62\x61"},
                                   {"dvi_pkg_size", 24, "\x74\x73\x72\x71"},
                                   {"dag_name", 28, filled("net", 128)}});
}

TEST(PortDesc, StandsInItsBytes) {
  port_desc port = test::port_named("data", "a/b");
  port.P = 0x11121314;
  port.D = 0x15161718;
  port.H = 0x21222324;
  port.W = 0x25262728;
  port.pitch = 0x31323334;
  port.dram_format = 0x41;
  port.flags = 0x2A;
  port.drotate_bit_offset = 0x51525354;
  port.hflip_bit_offset = 0x55565758;
  port.vflip_bit_offset = 0x61626364;
  port.dflip_bit_offset = 0x65666768;
  port.pflip_bit_offset = 0x71727374;
  port.sign = 0x01;
  port.datasize = 0x02;
  port.expoffset = -3;
  port.expbits = 0x04;
  port.port_size = 0x75767778;
  port.port_byte_offset = 0x31415161;
  expect_fields(record_text(port), {{"P", 0, "\x14\x13\x12\x11"},
                                    {"D", 4, "\x18\x17\x16\x15"},
                                    {"H", 8, "\x24\x23\x22\x21"},
                                    {"W", 12, "\x28\x27\x26\x25"},
                                    {"pitch", 16, "\x34\x33\x32\x31"},
                                    {"dram_format", 20, "\x41"},
                                    {"flags", 21, "\x2A"},
                                    {"reserved", 22, filled("", 2)},
                                    {"drotate_bit_offset", 24, "\x54\x53\x52\x51"},
                                    {"hflip_bit_offset", 28, "\x58\x57\x56\x55"},
                                    {"vflip_bit_offset", 32, "\x64\x63\x62\x61"},
                                    {"dflip_bit_offset", 36, "\x68\x67\x66\x65"},
                                    {"pflip_bit_offset", 40, "\x74\x73\x72\x71"},
                                    {"sign", 44, "\x01"},
                                    {"datasize", 45, "\x02"},
                                    {"expoffset", 46, "\xFD"},
                                    {"expbits", 47, "\x04"},
                                    {"port_size", 48, "\x78\x77\x76\x75"},
                                    {"port_byte_offset", 52, "\x61\x51\x41\x31"},
                                    {"port_name", 56, filled("data", 512)},
                                    {"layer_name", 568, filled("a/b", 512)}});
}

TEST(PortDesc, HasItsFlagsInTheLowSixBits) {
  EXPECT_EQ(MORVANE_PORT_BITVECTOR, 0x01);
  EXPECT_EQ(MORVANE_PORT_DROTATE, 0x02);
  EXPECT_EQ(MORVANE_PORT_HFLIP, 0x04);
  EXPECT_EQ(MORVANE_PORT_VFLIP, 0x08);
  EXPECT_EQ(MORVANE_PORT_DFLIP, 0x10);
  EXPECT_EQ(MORVANE_PORT_PFLIP, 0x20);
}

TEST(VprocDesc, StandsInTwelveBytes) {
  const vproc_desc vproc{.variable_num = 2, .smb_num = 3, .vproc_records_size = 668};
  expect_fields(record_text(vproc), {{"variable_num", 0, filled("\x02", 4)},
                                     {"smb_num", 4, filled("\x03", 4)},
                                     {"vproc_records_size", 8, filled("\x9C\x02", 4)}});
}

TEST(VarDesc, StandsInItsBytes) {
  expect_fields(record_text(test::variable_of("gain", 0x11121314, 0x21222324)),
                {{"var", 0, filled("gain", 128)},
                 {"boffset", 128, "\x14\x13\x12\x11"},
                 {"bsize", 132, "\x24\x23\x22\x21"}});
}

TEST(SmbDesc, StandsInItsBytes) {
  expect_fields(
      record_text(test::smb_of("bias", 0x11121314)),
      {{"smb_name", 0, filled("bias", 128)}, {"vbase_byte_offset", 128, "\x14\x13\x12\x11"}});
}

TEST(Records, HoldNoPaddingBytes) {
  EXPECT_TRUE(std::has_unique_object_representations_v<pkg_header>);
  EXPECT_TRUE(std::has_unique_object_representations_v<dvi_desc>);
  EXPECT_TRUE(std::has_unique_object_representations_v<port_desc>);
  EXPECT_TRUE(std::has_unique_object_representations_v<vproc_desc>);
  EXPECT_TRUE(std::has_unique_object_representations_v<var_desc>);
  EXPECT_TRUE(std::has_unique_object_representations_v<smb_desc>);
}

TEST(BytesOf, WritesThroughToTheRecord) {
  smb_desc smb{};
  bytes_of(smb)[129] = std::byte{0x01};
  EXPECT_EQ(smb.vbase_byte_offset, 256U);
}

TEST(TextOf, EndsAtTheFirstNulOrAtTheEndOfTheField) {
  EXPECT_EQ(text_of(std::string("net\0old", 7)), "net");
  EXPECT_EQ(text_of(std::string("\0old", 4)), "");
  EXPECT_EQ(text_of(std::string(128, 'n')), std::string(128, 'n'));
}

}  // namespace
}  // namespace morvane

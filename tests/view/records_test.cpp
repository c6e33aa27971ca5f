// What is reached in an accepted package.

#include <gtest/gtest.h>

#include "harness/packages.h"
#include "view/opened_package.h"

namespace morvane::test {
namespace {

// The DVI of a package at a position.
morvane_view_dvi dvi_at(const opened_package& opened, unsigned position) {
  morvane_view_dvi dvi{};
  EXPECT_EQ(morvane_view_first(&opened.view, &dvi), MORVANE_VIEW_OK);
  for (; position > 0; --position) {
    EXPECT_EQ(morvane_view_next(&opened.view, &dvi), MORVANE_VIEW_OK);
  }
  return dvi;
}

/// A record whose bytes are 1, 2, 3 ...: every field differs from every other.
template <class Record>
Record counting() {
  Record record{};
  auto* bytes = reinterpret_cast<unsigned char*>(&record);
  for (std::size_t i = 0; i < sizeof record; ++i) {
    bytes[i] = static_cast<unsigned char>(i + 1);
  }
  return record;
}

TEST(Dvi, HasTheFieldsOfItsRecord) {
  dvi_desc record = counting<dvi_desc>();
  record.dvi_img_size = 2;
  record.input_num = 0;
  record.output_num = 0;
  record.dvi_pkg_size = 2;
  const opened_package opened(header(1) + bytes(record) + "IM");
  ASSERT_EQ(opened.status, MORVANE_VIEW_OK);
  const morvane_view_dvi dvi = dvi_at(opened, 0);
  EXPECT_EQ(dvi.dvi_id, 1);
  EXPECT_EQ(dvi.vproc_id, 2);
  EXPECT_EQ(dvi.dvi_ppv, 3);
  EXPECT_EQ(dvi.reserved, 4);
  EXPECT_EQ(dvi.dvi_img_vaddr, 0x08070605U);
  EXPECT_EQ(dvi.dvi_img_size, 2U);
  EXPECT_EQ(dvi.dvi_dag_vaddr, 0x100F0E0DU);
  EXPECT_EQ(dvi.dvi_pkg_size, 2U);
  EXPECT_EQ(str(dvi.dag_name).size(), 128U);
  EXPECT_EQ(str(dvi.dag_name).substr(0, 2), "\x1d\x1e");
}

TEST(Dvi, TellsWhereItsPartsLie) {
  const opened_package opened(sample_package());
  const morvane_view_dvi first = dvi_at(opened, 0);
  EXPECT_EQ(first.position, 0U);
  EXPECT_EQ(first.offset, 12U);
  EXPECT_EQ(first.block, 12U + 2 * 156);
  EXPECT_EQ(first.vproc_offset, 324U + 2168 + 4);
  EXPECT_EQ(first.vproc_block, 2496U + 2 * 12);
  const morvane_view_dvi second = dvi_at(opened, 1);
  EXPECT_EQ(second.position, 1U);
  EXPECT_EQ(second.offset, 12U + 156);
  EXPECT_EQ(second.block, 324U + 2168);
  EXPECT_EQ(second.vproc_offset, 2496U + 12);
  EXPECT_EQ(second.vproc_block, 2520U + 268);
}

TEST(Dvi, HasNoSuccessorAtTheEnd) {
  const opened_package opened(sample_package());
  morvane_view_dvi dvi = dvi_at(opened, 1);
  EXPECT_EQ(morvane_view_next(&opened.view, &dvi), MORVANE_VIEW_OUT_OF_RANGE);
  EXPECT_EQ(dvi.position, 1U);
}

TEST(Dvi, IsNotFoundInAPackageWithoutDvis) {
  const opened_package opened(header(0));
  morvane_view_dvi dvi{};
  EXPECT_EQ(morvane_view_first(&opened.view, &dvi), MORVANE_VIEW_OUT_OF_RANGE);
  EXPECT_EQ(morvane_view_find(&opened.view, "net", &dvi), MORVANE_VIEW_NOT_FOUND);
}

TEST(Dvi, IsFoundByItsWholeName) {
  const opened_package opened(sample_package());
  morvane_view_dvi dvi{};
  EXPECT_EQ(morvane_view_find(&opened.view, "net_split_1", &dvi), MORVANE_VIEW_OK);
  EXPECT_EQ(dvi.position, 1U);
  EXPECT_EQ(morvane_view_find(&opened.view, "net_split_", &dvi), MORVANE_VIEW_NOT_FOUND);
  EXPECT_EQ(morvane_view_find(&opened.view, "net_split_11", &dvi), MORVANE_VIEW_NOT_FOUND);
  EXPECT_EQ(morvane_view_find(&opened.view, "", &dvi), MORVANE_VIEW_NOT_FOUND);
}

TEST(Dvi, IsTheFirstOfSeveralWithItsName) {
  const opened_package opened(header(2) + bytes(dvi("net", 1)) + bytes(dvi("net", 1)) + "ab");
  morvane_view_dvi dvi{};
  EXPECT_EQ(morvane_view_find(&opened.view, "net", &dvi), MORVANE_VIEW_OK);
  EXPECT_EQ(dvi.position, 0U);
}

TEST(Port, HasTheFieldsOfItsRecord) {
  const opened_package opened(header(1) + bytes(dvi("net", 0, 1)) + bytes(counting<port_desc>()));
  ASSERT_EQ(opened.status, MORVANE_VIEW_OK);
  const morvane_view_dvi dvi = dvi_at(opened, 0);
  morvane_view_port port{};
  ASSERT_EQ(morvane_view_input(&opened.view, &dvi, 0, &port), MORVANE_VIEW_OK);
  EXPECT_EQ(port.P, 0x04030201U);
  EXPECT_EQ(port.D, 0x08070605U);
  EXPECT_EQ(port.H, 0x0C0B0A09U);
  EXPECT_EQ(port.W, 0x100F0E0DU);
  EXPECT_EQ(port.pitch, 0x14131211U);
  EXPECT_EQ(port.dram_format, 0x15);
  EXPECT_EQ(port.flags, 0x16);
  EXPECT_EQ(port.reserved[0], 0x17);
  EXPECT_EQ(port.reserved[1], 0x18);
  EXPECT_EQ(port.drotate_bit_offset, 0x1C1B1A19U);
  EXPECT_EQ(port.hflip_bit_offset, 0x201F1E1DU);
  EXPECT_EQ(port.vflip_bit_offset, 0x24232221U);
  EXPECT_EQ(port.dflip_bit_offset, 0x28272625U);
  EXPECT_EQ(port.pflip_bit_offset, 0x2C2B2A29U);
  EXPECT_EQ(port.sign, 0x2D);
  EXPECT_EQ(port.datasize, 0x2E);
  EXPECT_EQ(port.expoffset, 0x2F);
  EXPECT_EQ(port.expbits, 0x30);
  EXPECT_EQ(port.port_size, 0x34333231U);
  EXPECT_EQ(port.port_byte_offset, 0x38373635U);
  EXPECT_EQ(str(port.port_name).substr(0, 2), "\x39\x3a");
  EXPECT_EQ(port.port_name.length, 0xFFU - 0x38U);
  EXPECT_EQ(str(port.layer_name).substr(0, 2), "\x39\x3a");
  EXPECT_EQ(port.offset, 168U);
}

TEST(Port, HasASignedExponentOffset) {
  const opened_package opened(header(1) + bytes(dvi("net", 0, 1)) + bytes(port("data", "")));
  const morvane_view_dvi dvi = dvi_at(opened, 0);
  morvane_view_port port{};
  ASSERT_EQ(morvane_view_input(&opened.view, &dvi, 0, &port), MORVANE_VIEW_OK);
  EXPECT_EQ(port.expoffset, -3);
}

TEST(Port, IsReachedByItsDirectionAndPosition) {
  const opened_package opened(header(1) + bytes(dvi("net", 0, 2, 1)) + bytes(port("a", "x")) +
                              bytes(port("b", "y")) + bytes(port("c", "z")));
  ASSERT_EQ(opened.status, MORVANE_VIEW_OK);
  const morvane_view_dvi dvi = dvi_at(opened, 0);
  morvane_view_port port{};
  EXPECT_EQ(morvane_view_input(&opened.view, &dvi, 1, &port), MORVANE_VIEW_OK);
  EXPECT_EQ(str(port.port_name), "b");
  EXPECT_EQ(str(port.layer_name), "y");
  EXPECT_EQ(port.offset, 168U + 1080);
  EXPECT_EQ(morvane_view_output(&opened.view, &dvi, 0, &port), MORVANE_VIEW_OK);
  EXPECT_EQ(str(port.port_name), "c");
  EXPECT_EQ(morvane_view_input(&opened.view, &dvi, 2, &port), MORVANE_VIEW_OUT_OF_RANGE);
  EXPECT_EQ(morvane_view_output(&opened.view, &dvi, 1, &port), MORVANE_VIEW_OUT_OF_RANGE);
  EXPECT_EQ(morvane_view_output(&opened.view, &dvi, 0xFFFFFFFF, &port), MORVANE_VIEW_OUT_OF_RANGE);
}

TEST(Image, IsThatOfItsDvi) {
  const opened_package opened(sample_package());
  morvane_bytes image{};
  morvane_view_dvi dvi = dvi_at(opened, 0);
  EXPECT_EQ(morvane_view_image(&opened.view, &dvi, &image), MORVANE_VIEW_OK);
  EXPECT_EQ(str(image), "IMAGE 0\n");
  EXPECT_EQ(image.bytes - opened.view.bytes, 324 + 2160);
  dvi = dvi_at(opened, 1);
  EXPECT_EQ(morvane_view_image(&opened.view, &dvi, &image), MORVANE_VIEW_OK);
  EXPECT_EQ(str(image), "IMG1");
}

TEST(Vproc, HasItsVariablesAndSmbs) {
  const vproc_desc vproc{2, 1, 2 * 136 + 132};
  const opened_package opened(header(1) + bytes(dvi("net", 0)) + bytes(vproc) +
                              bytes(variable("gain")) + bytes(counting<var_desc>()) +
                              bytes(counting<smb_desc>()));
  ASSERT_EQ(opened.status, MORVANE_VIEW_OK);
  const morvane_view_dvi dvi = dvi_at(opened, 0);
  EXPECT_EQ(dvi.variable_num, 2U);
  EXPECT_EQ(dvi.smb_num, 1U);
  EXPECT_EQ(dvi.vproc_records_size, 404U);
  morvane_view_var var{};
  EXPECT_EQ(morvane_view_variable(&opened.view, &dvi, 1, &var), MORVANE_VIEW_OK);
  EXPECT_EQ(str(var.var).substr(0, 2), "\1\2");
  EXPECT_EQ(var.var.length, 128U);
  EXPECT_EQ(var.boffset, 0x84838281U);
  EXPECT_EQ(var.bsize, 0x88878685U);
  EXPECT_EQ(var.offset, 180U + 136);
  EXPECT_EQ(morvane_view_variable(&opened.view, &dvi, 2, &var), MORVANE_VIEW_OUT_OF_RANGE);
  morvane_view_smb_block smb{};
  EXPECT_EQ(morvane_view_smb(&opened.view, &dvi, 0, &smb), MORVANE_VIEW_OK);
  EXPECT_EQ(smb.smb_name.length, 128U);
  EXPECT_EQ(smb.vbase_byte_offset, 0x84838281U);
  EXPECT_EQ(smb.offset, 180U + 272);
  EXPECT_EQ(morvane_view_smb(&opened.view, &dvi, 1, &smb), MORVANE_VIEW_OUT_OF_RANGE);
}

TEST(Text, EqualsAStringOfTheSameCharacters) {
  const auto equals = [](std::string_view text, const char* string) {
    return morvane_text_equals({.bytes = text.data(), .length = text.size()}, string);
  };
  EXPECT_EQ(equals("data", "data"), 1);
  EXPECT_EQ(equals("data", "date"), 0);
  EXPECT_EQ(equals("data", "dat"), 0);
  EXPECT_EQ(equals("data", "data1"), 0);
  EXPECT_EQ(equals("", ""), 1);
  EXPECT_EQ(equals("", "a"), 0);
  EXPECT_EQ(equals({"a\0b", 3}, "a"), 0);
  EXPECT_EQ(equals("\xff", "\xff"), 1);
}

}  // namespace
}  // namespace morvane::test

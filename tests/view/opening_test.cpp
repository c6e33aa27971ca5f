// Which packages are accepted, and what is said about the others.

#include <gtest/gtest.h>

#include <set>

#include "harness/packages.h"
#include "view/opened_package.h"

namespace morvane::test {
namespace {

/// A package with one DVI of one input, one output and an image of 4 bytes: 12 + 156 + 2164 bytes.
std::string one_dvi(const dvi_desc& record = dvi("net", 4, 1, 1)) {
  return header(1) + bytes(record) + bytes(port("data", "")) + bytes(port("prob", "")) + "IMG0";
}

/// The same with a variable and an SMB: 12 + 268 bytes more.
std::string with_vproc(const vproc_desc& record = {1, 1, 268}) {
  return one_dvi() + bytes(record) + bytes(variable("gain")) + bytes(smb("lut"));
}

void expect_damage(std::string_view package, int status, std::uint32_t dvi, std::size_t offset,
                   std::uint64_t claimed, std::uint64_t present) {
  const opened_package opened(package);
  EXPECT_EQ(opened.status, status);
  EXPECT_EQ(opened.damage.status, status);
  EXPECT_EQ(opened.damage.dvi, dvi);
  EXPECT_EQ(opened.damage.offset, offset);
  EXPECT_EQ(opened.damage.claimed, claimed);
  EXPECT_EQ(opened.damage.present, present);
}

TEST(Opening, FindsNoVprocSectionWhereNoByteFollowsTheDviBlocks) {
  const opened_package opened(one_dvi());
  EXPECT_EQ(opened.status, MORVANE_VIEW_OK);
  EXPECT_EQ(opened.view.version, 0x02010006U);
  EXPECT_EQ(opened.view.HASH, 0x0B3B3814U);
  EXPECT_EQ(opened.view.dvi_num, 1U);
  EXPECT_EQ(opened.view.sound_dvis, 1U);
  EXPECT_EQ(opened.view.vproc_table, 0U);
  EXPECT_EQ(opened.view.sound_vprocs, 0U);
  EXPECT_EQ(morvane_view_need_vproc(&opened.view), MORVANE_VIEW_NO_VPROC);
}

TEST(Opening, FindsTheVprocSectionThatFillsTheRest) {
  const opened_package opened(with_vproc());
  EXPECT_EQ(opened.status, MORVANE_VIEW_OK);
  EXPECT_EQ(opened.view.vproc_table, 12U + 156U + 2164U);
  EXPECT_EQ(opened.view.sound_vprocs, 1U);
  EXPECT_EQ(morvane_view_need_vproc(&opened.view), MORVANE_VIEW_OK);
}

TEST(Opening, TakesAVprocSectionWithoutRecords) {
  const opened_package opened(header(1) + bytes(dvi("net", 0)) + bytes(vproc_desc{}));
  EXPECT_EQ(opened.status, MORVANE_VIEW_OK);
  EXPECT_EQ(morvane_view_need_vproc(&opened.view), MORVANE_VIEW_OK);
}

TEST(Opening, TakesAPackageWithoutDvis) {
  const opened_package opened(header(0));
  EXPECT_EQ(opened.status, MORVANE_VIEW_OK);
  EXPECT_EQ(morvane_view_need_vproc(&opened.view), MORVANE_VIEW_NO_VPROC);
}

TEST(Opening, TakesAPackageWrittenWithVprocRecordsAndCutBeforeThemForOneWithout) {
  const opened_package opened(with_vproc().substr(0, 12 + 156 + 2164));
  EXPECT_EQ(opened.status, MORVANE_VIEW_OK);
  EXPECT_EQ(morvane_view_need_vproc(&opened.view), MORVANE_VIEW_NO_VPROC);
}

TEST(Opening, WorksWithoutSomebodyWhoAsksForTheDamage) {
  const std::string package = header(1);
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(package.data());
  morvane_view view{};
  EXPECT_EQ(morvane_view_open(&view, bytes, package.size(), nullptr), MORVANE_VIEW_DVI_TABLE_CUT);
}

dvi_desc with_block_size(dvi_desc record, std::uint32_t size) {
  record.dvi_pkg_size = size;
  return record;
}

TEST(Opening, RefusesADamageWithItsNumbers) {
  const std::string vproc = with_vproc();
  expect_damage("", MORVANE_VIEW_HEADER_CUT, 0, 0, 12, 0);
  expect_damage(header(0).substr(0, 11), MORVANE_VIEW_HEADER_CUT, 0, 0, 12, 11);
  expect_damage(one_dvi().substr(0, 12 + 155), MORVANE_VIEW_DVI_TABLE_CUT, 0, 12, 156, 155);
  expect_damage(header(0xFFFFFFFF), MORVANE_VIEW_DVI_TABLE_CUT, 0, 12, 0xFFFFFFFF * 156ULL, 0);
  expect_damage(one_dvi().substr(0, 168 + 2159), MORVANE_VIEW_PORTS_CUT, 0, 168, 2160, 2159);
  expect_damage(one_dvi().substr(0, 168 + 2163), MORVANE_VIEW_IMAGE_CUT, 0, 168 + 2160, 4, 3);
  expect_damage(vproc.substr(0, 2332 + 11), MORVANE_VIEW_VPROC_TABLE_CUT, 0, 2332, 12, 11);
  expect_damage(vproc.substr(0, 2344 + 135), MORVANE_VIEW_VARIABLES_CUT, 0, 2344, 136, 135);
  expect_damage(vproc.substr(0, 2344 + 267), MORVANE_VIEW_SMBS_CUT, 0, 2344 + 136, 132, 131);
  expect_damage(vproc + "!", MORVANE_VIEW_BYTES_LEFT_OVER, 0, 2332 + 12 + 268, 0, 1);
  expect_damage(header(0) + "!", MORVANE_VIEW_BYTES_LEFT_OVER, 0, 12, 0, 1);
}

TEST(Opening, RefusesSizesThatDisagreeWithTheCountsBeforeItLooksAtTheBlock) {
  expect_damage(one_dvi(with_block_size(dvi("net", 4, 1, 1), 2163)),
                MORVANE_VIEW_BLOCK_SIZE_DISAGREES, 0, 12 + 24, 2163, 2164);
  expect_damage(one_dvi(with_block_size(dvi("net", 4, 2, 1), 2164)),
                MORVANE_VIEW_BLOCK_SIZE_DISAGREES, 0, 12 + 24, 2164, 3244);
  expect_damage(with_vproc({1, 1, 267}), MORVANE_VIEW_VPROC_SIZE_DISAGREES, 0, 2332 + 8, 267, 268);
}

TEST(Opening, RefusesPortsWhoseSizeWrapsAroundIn32Bits) {
  // 1080 x 0x3CAE77 is 1080 more than 2^32.
  const dvi_desc record = dvi("net", 4, 0x3CAE76, 1);
  expect_damage(one_dvi(record), MORVANE_VIEW_PORTS_CUT, 0, 168, 1080ULL * 0x3CAE77, 2164);
  const dvi_desc sum = dvi("net", 4, 0xFFFFFFFF, 3);
  expect_damage(one_dvi(sum), MORVANE_VIEW_PORTS_CUT, 0, 168, 1080ULL * 0x100000002, 2164);
}

TEST(Opening, ReachesTheDvisBeforeTheDamage) {
  const std::string table = bytes(dvi("one", 4)) + bytes(dvi("two", 4)) + bytes(dvi("three", 4));
  const opened_package opened(header(3) + table + "IMG0" + "IMG1" + "IM");
  EXPECT_EQ(opened.status, MORVANE_VIEW_IMAGE_CUT);
  EXPECT_EQ(opened.damage.dvi, 2U);
  EXPECT_EQ(opened.view.sound_dvis, 2U);
  morvane_view_dvi dvi{};
  morvane_bytes image{};
  EXPECT_EQ(morvane_view_find(&opened.view, "two", &dvi), MORVANE_VIEW_OK);
  EXPECT_EQ(morvane_view_image(&opened.view, &dvi, &image), MORVANE_VIEW_OK);
  EXPECT_EQ(str(image), "IMG1");
  EXPECT_EQ(morvane_view_find(&opened.view, "three", &dvi), MORVANE_VIEW_NOT_FOUND);
}

TEST(Opening, ReachesTheVprocsBeforeTheDamage) {
  const std::string table = bytes(dvi("one", 0)) + bytes(dvi("two", 0));
  const std::string vprocs = bytes(vproc_desc{1, 0, 136}) + bytes(vproc_desc{1, 0, 136});
  const opened_package opened(header(2) + table + vprocs + bytes(variable("gain")) + "cut");
  EXPECT_EQ(opened.status, MORVANE_VIEW_VARIABLES_CUT);
  EXPECT_EQ(opened.view.sound_dvis, 2U);
  EXPECT_EQ(opened.view.sound_vprocs, 1U);
  morvane_view_dvi dvi{};
  morvane_view_var variable{};
  ASSERT_EQ(morvane_view_first(&opened.view, &dvi), MORVANE_VIEW_OK);
  EXPECT_EQ(morvane_view_variable(&opened.view, &dvi, 0, &variable), MORVANE_VIEW_OK);
  EXPECT_EQ(str(variable.var), "gain");
  ASSERT_EQ(morvane_view_next(&opened.view, &dvi), MORVANE_VIEW_OK);
  EXPECT_EQ(dvi.variable_num, 0U);
  EXPECT_EQ(dvi.vproc_offset, 0U);
  EXPECT_EQ(morvane_view_next(&opened.view, &dvi), MORVANE_VIEW_OUT_OF_RANGE);
}

TEST(Opening, NamesEveryStatusInWordsOfItsOwn) {
  std::set<std::string> texts;
  for (int status = MORVANE_VIEW_NOT_FOUND; status <= MORVANE_VIEW_OK; ++status) {
    texts.insert(morvane_view_status_text(status));
  }
  EXPECT_EQ(texts.size(), 14U);
  EXPECT_FALSE(texts.contains("unknown status"));
  EXPECT_STREQ(morvane_view_status_text(1), "unknown status");
  EXPECT_STREQ(morvane_view_status_text(MORVANE_VIEW_NOT_FOUND - 1), "unknown status");
}

}  // namespace
}  // namespace morvane::test

#include "format/macros.h"

#include <gtest/gtest.h>

#include <limits>

#include "sample_records.h"

namespace morvane {
namespace {

constexpr macro_row word{"_w", macro_kind::word, 4, 1};
constexpr macro_row byte{"_b", macro_kind::byte, 4, 1};
constexpr macro_row signed_byte{"_s", macro_kind::signed_byte, 4, 1};
constexpr macro_row third_bit{"_f", macro_kind::bit, 4, 1, 0x04};
constexpr macro_row guarded_bit{"_g", macro_kind::guarded_bit, 4, 1, 0x20};

/// Ten bytes of 0xAA, after a number was stored in them.
std::string stored(const macro_row& row, long number) {
  std::string record(10, '\xAA');
  store_number(std::as_writable_bytes(std::span(record)), row, number);
  return record;
}

long loaded(const macro_row& row, const std::string& record) {
  return load_number(std::as_bytes(std::span(record)), row);
}

TEST(StoreNumber, PutsTheLowBitsOfAWordLittleEndian) {
  EXPECT_EQ(stored(word, 0x0112345678), "\xAA\xAA\xAA\xAA\x78\x56\x34\x12\xAA\xAA");
  EXPECT_EQ(stored(word, -1), "\xAA\xAA\xAA\xAA\xFF\xFF\xFF\xFF\xAA\xAA");
}

TEST(StoreNumber, PutsTheLowBitsOfAByte) {
  EXPECT_EQ(stored(byte, 0x1FE), "\xAA\xAA\xAA\xAA\xFE\xAA\xAA\xAA\xAA\xAA");
  EXPECT_EQ(stored(signed_byte, -3), "\xAA\xAA\xAA\xAA\xFD\xAA\xAA\xAA\xAA\xAA");
}

TEST(StoreNumber, PutsTheLowestBitAndLeavesTheOthersAlone) {
  EXPECT_EQ(stored(third_bit, 3), "\xAA\xAA\xAA\xAA\xAE\xAA\xAA\xAA\xAA\xAA");
  EXPECT_EQ(stored(guarded_bit, 2), "\xAA\xAA\xAA\xAA\x8A\xAA\xAA\xAA\xAA\xAA");
  EXPECT_EQ(stored(guarded_bit, -1), "\xAA\xAA\xAA\xAA\xAA\xAA\xAA\xAA\xAA\xAA");
}

TEST(LoadNumber, GivesWordsAndBytesUnsigned) {
  EXPECT_EQ(loaded(word, "....\xFF\xFF\xFF\xFF"), 4294967295);
  EXPECT_EQ(loaded(word, "....\x78\x56\x34\x12"), 0x12345678);
  EXPECT_EQ(loaded(byte, "....\xFF"), 255);
}

TEST(LoadNumber, GivesASignedByteSigned) {
  EXPECT_EQ(loaded(signed_byte, "....\xFD"), -3);
  EXPECT_EQ(loaded(signed_byte, "....\x7F"), 127);
}

TEST(LoadNumber, GivesABitAsZeroOrOne) {
  EXPECT_EQ(loaded(third_bit, "....\x04"), 1);
  EXPECT_EQ(loaded(third_bit, "....\xFB"), 0);
  EXPECT_EQ(loaded(guarded_bit, "....\x20"), 1);
  EXPECT_EQ(loaded(guarded_bit, "....\xDF"), 0);
}

TEST(LoadText, EndsAtTheFirstNulOrAtTheEndOfTheField) {
  const macro_row& layer_name = port_macros.back();
  const auto text = [&](const port_desc& port) {
    return std::string(load_text(std::as_bytes(std::span(&port, 1)), layer_name));
  };
  EXPECT_EQ(text(test::port_named("data", "a/b")), "a/b");
  EXPECT_EQ(text(test::port_named("data")), "");
  EXPECT_EQ(text(test::port_named("data", std::string(512, 'l'))), std::string(512, 'l'));
}

TEST(StoreText, FillsTheRestOfTheFieldWithNuls) {
  std::string field = "longer text";
  store_text(std::as_writable_bytes(std::span(field)), "new");
  EXPECT_EQ(field, std::string("new\0\0\0\0\0\0\0\0", 11));
}

TEST(MacroVocabulary, HasTheseKeywords) {
  EXPECT_EQ(dag_name_macro, "_DAG_NAME");
  EXPECT_EQ(input_ports.keyword, "HMB_input");
  EXPECT_EQ(input_ports.direction, "input");
  EXPECT_EQ(output_ports.keyword, "HMB_output");
  EXPECT_EQ(output_ports.direction, "output");
  EXPECT_EQ(smb_keyword, "SMB_input");
  EXPECT_EQ(variable_keyword, "$");
}

}  // namespace
}  // namespace morvane

#include "headers/macro_values.h"

#include <gtest/gtest.h>

#include <string>

#include "printed_text.h"

namespace morvane {
namespace {

using test::length_message;
using test::printed_by;

using rests = std::vector<std::string_view>;

named_line named(std::string_view line, std::string_view name) {
  named_line found{.line = {}, .name = name, .rests = {}};
  set_line(found, line);
  return found;
}

port_desc port_with_width(std::uint32_t W) {
  port_desc port{};
  port.W = W;
  return port;
}

port_desc port_with_flags(std::uint8_t flags) {
  port_desc port{};
  port.flags = flags;
  return port;
}

/// A port record after a line for the port "a" was stored in it.
port_desc stored(std::string_view line, port_desc port = {}) {
  EXPECT_EQ(store_match(find_macro(named(line, "a"), port_macros), bytes_of(port)), 0);
  return port;
}

TEST(SetLine, FindsWhatFollowsTheNameEverywhere) {
  EXPECT_EQ(named("net_a_W a", "a").rests, (rests{"_W a", ""}));
  EXPECT_EQ(named("net_W", "a").rests, rests{});
}

TEST(SetLine, FindsNamesThatOverlap) {
  EXPECT_EQ(named("aaaa_W 5", "aa").rests, (rests{"aa_W 5", "a_W 5", "_W 5"}));
}

TEST(SetLine, ForgetsTheLineBefore) {
  named_line line = named("a a a", "a");
  set_line(line, "  a");
  EXPECT_EQ(line.line, "  a");
  EXPECT_EQ(line.rests, rests{""});
}

TEST(StoreMatch, LeavesTheRecordAloneWithoutAMacro) {
  for (const char* line : {"#define net_a 5", "#define net_b_W 5", "#define net_a_W", "a_X_W 5"}) {
    EXPECT_EQ(stored(line, port_with_width(9)).W, 9U) << line;
  }
}

TEST(StoreMatch, FindsAMacroBehindAnOverlappingName) {
  port_desc port{};
  EXPECT_EQ(store_match(find_macro(named("#define aaa_W 5", "aa"), port_macros), bytes_of(port)),
            0);
  EXPECT_EQ(port.W, 5U);
}

TEST(StoreMatch, StoresTheFirstMacroOfTheTableOnly) {
  const port_desc port = stored("#define a_W 9 /* a_dbase_byte_offset 3 */");
  EXPECT_EQ(port.port_byte_offset, 3U);
  EXPECT_EQ(port.W, 0U);
}

TEST(StoreMatch, PassesOverAMacroWithoutAValue) {
  EXPECT_EQ(stored("a_W 9 a_dbase_byte_offset").W, 9U);
}

TEST(StoreMatch, LetsTheFirstPlaceOfAMacroDecide) {
  EXPECT_EQ(stored("a_W /* a_W 5 */").W, 0U);
  EXPECT_EQ(stored("a_W 6 a_W 5").W, 6U);
  EXPECT_EQ(stored("a_H 7 /* a_W").W, 0U);
}

TEST(StoreMatch, TakesTheRestOfALongerMacroAsTheValue) {
  EXPECT_EQ(stored("#define net_a_Wx 5", port_with_width(9)).W, 0U);
}

TEST(StoreMatch, EndsAValueAtANul) {
  EXPECT_EQ(stored({"a_W 5\0006", 7}).W, 5U);
  EXPECT_EQ(stored({"a_W \0005", 6}, port_with_width(9)).W, 9U);
}

TEST(StoreMatch, SetsAFlagFromTheLowestBit) {
  EXPECT_EQ(stored("a_hflip 3").flags, 0x04);
  EXPECT_EQ(stored("a_hflip 2", port_with_flags(0x3F)).flags, 0x3B);
}

TEST(StoreMatch, LeavesAFlagAloneWhenItsNameGoesOn) {
  for (const char* flag : {"a_drotate", "a_hflip", "a_vflip", "a_dflip", "a_pflip"}) {
    EXPECT_EQ(stored(std::string(flag) + "_mode 1").flags, 0) << flag;
    EXPECT_EQ(stored(std::string(flag) + "_mode 0", port_with_flags(0x3F)).flags, 0x3F) << flag;
    EXPECT_EQ(stored(std::string(flag) + "_bit_offset 3").flags, 0) << flag;
  }
}

TEST(StoreMatch, LeavesAFlagAloneWhenItsNameGoesOnAtALaterPlace) {
  EXPECT_EQ(stored("a_vflip 1 /* a_vflip_x */").flags, 0);
  EXPECT_EQ(stored("a_vflip 1 /* a_vflip_ */").flags, 0x08);
}

TEST(StoreMatch, ClearsAFlagWhoseNameGoesOnWithAnUnderscoreAlone) {
  EXPECT_EQ(stored("a_pflip_", port_with_flags(0x3F)).flags, 0x1F);
}

TEST(StoreMatch, DoesNotGuardTheBitvectorFlag) {
  EXPECT_EQ(stored("a_is_bitvector_x 1", port_with_flags(0x01)).flags, 0);
  EXPECT_EQ(stored("a_is_bitvector 1 a_is_bitvector_x").flags, 0x01);
}

TEST(StoreMatch, KeepsTheSlashesOfALayerName) {
  EXPECT_STREQ(stored("a_qubrix_demangled_name \"a/b/c\" /* d */").layer_name, "a/b/c");
}

TEST(StoreMatch, ReplacesALongerLayerNameWholly) {
  port_desc port = stored("a_qubrix_demangled_name long/layer/name");
  port = stored("a_qubrix_demangled_name ab", port);
  EXPECT_EQ(std::string_view(port.layer_name, 512), std::string("ab").append(510, '\0'));
}

TEST(StoreMatch, TakesALayerNameOf511Characters) {
  const std::string name(511, 'l');
  EXPECT_EQ(stored("a_qubrix_demangled_name " + name).layer_name, name);
}

TEST(StoreMatch, ReportsALayerNameOf512Characters) {
  const std::string name(512, 'l');
  const std::string line = std::string("a_qubrix_demangled_name ") + name;
  port_desc port{};
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(store_match(find_macro(named(line, "a"), port_macros), bytes_of(port)), -1);
            }),
            length_message("IO_DEMNGL_NAME", name));
}

}  // namespace
}  // namespace morvane

// What `morvane check` finds in a package: one test for each code.
#include "cli/check/check_package.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "cli/findings/finding_output.h"
#include "cli/sound_package.h"

namespace morvane::test {
namespace {

using cli::check_scope;
using cli::package_summary;
using cli::vproc_demand;
using lines = std::vector<std::string>;

struct check_result {
  package_summary summary;
  lines findings;
};

check_result check(std::string_view package, const check_scope& scope = {}) {
  const std::span<const char> characters(package);
  check_result result;
  result.summary = cli::check_package(
      {reinterpret_cast<const std::uint8_t*>(characters.data()), characters.size()}, scope,
      [&](const cli::finding& found) { result.findings.push_back(finding_line(found, false)); },
      [](std::uint64_t) {});
  return result;
}

lines findings(std::string_view package, const check_scope& scope = {}) {
  return check(package, scope).findings;
}

/// The package with other bytes from an offset on.
std::string changed(std::string package, std::size_t offset, std::string_view bytes) {
  std::ranges::copy(bytes, package.begin() + static_cast<std::ptrdiff_t>(offset));
  return package;
}

std::string word(std::uint32_t value) {
  return bytes(value);
}

constexpr check_scope with_notes{.notes = true};

TEST(CheckPackage, FindsNothingInASoundPackage) {
  const check_result plain = check(sound_package(), with_notes);
  EXPECT_EQ(plain.findings, lines{});
  EXPECT_EQ(plain.summary.dvis, 2U);
  EXPECT_EQ(plain.summary.ports, 4U);
  EXPECT_FALSE(plain.summary.has_vproc);
  EXPECT_EQ(plain.summary.bytes, 4772U);
  const check_result vproc = check(sound_package_with_vproc(), with_notes);
  EXPECT_EQ(vproc.findings, lines{});
  EXPECT_TRUE(vproc.summary.has_vproc);
  EXPECT_EQ(vproc.summary.bytes, 5064U);
}

TEST(CheckPackage, FindsACutHeader) {
  EXPECT_EQ(
      findings(""),
      lines{":0x0: error: the header is cut: 12 bytes are needed, and 0 are left [header-cut]\n"});
  EXPECT_EQ(
      findings(sound_package().substr(0, 11)),
      lines{":0x0: error: the header is cut: 12 bytes are needed, and 11 are left [header-cut]\n"});
}

TEST(CheckPackage, FindsACutDviTable) {
  EXPECT_EQ(findings(sound_package().substr(0, 323)),
            lines{":0xc: error: the DVI table is cut: 312 bytes are needed, and 311 are left "
                  "[dvi-table-cut]\n"});
}

TEST(CheckPackage, FindsABlockSizeThatDisagrees) {
  EXPECT_EQ(findings(changed(sound_package(), 0x24, word(2225))),
            lines{":0x24: error: DVI 0: dvi_pkg_size is 2225, but the ports and the image have "
                  "2224 bytes [block-size-disagrees]\n"});
}

TEST(CheckPackage, FindsCutPorts) {
  EXPECT_EQ(findings(sound_package().substr(0, 0x12A4 - 65)),
            lines{":0x9f4: error: DVI 1: the ports are cut: 2160 bytes are needed, and 2159 are "
                  "left [ports-cut]\n"});
}

TEST(CheckPackage, FindsACutImage) {
  EXPECT_EQ(findings(sound_package().substr(0, 0x12A4 - 1)),
            lines{":0x1264: error: DVI 1: the image is cut: 64 bytes are needed, and 63 are left "
                  "[image-cut]\n"});
}

TEST(CheckPackage, FindsACutVprocTable) {
  EXPECT_EQ(findings(sound_package() + "1"),
            lines{":0x12a4: error: the vproc table is cut: 24 bytes are needed, and 1 is left "
                  "[vproc-table-cut]\n"});
}

TEST(CheckPackage, FindsAVprocSizeThatDisagrees) {
  EXPECT_EQ(findings(changed(sound_package_with_vproc(), 0x12AC, word(269))),
            lines{":0x12ac: error: DVI 0: vproc_records_size is 269, but the variables and SMB "
                  "blocks have 268 bytes [vproc-size-disagrees]\n"});
}

TEST(CheckPackage, FindsCutVariables) {
  EXPECT_EQ(findings(sound_package_with_vproc().substr(0, 0x1343)),
            lines{":0x12bc: error: DVI 0: the variables are cut: 136 bytes are needed, and 135 are "
                  "left [variables-cut]\n"});
}

TEST(CheckPackage, FindsCutSmbBlocks) {
  EXPECT_EQ(findings(sound_package_with_vproc().substr(0, 0x13C7)),
            lines{":0x1344: error: DVI 0: the SMB blocks are cut: 132 bytes are needed, and 131 "
                  "are left [smbs-cut]\n"});
}

TEST(CheckPackage, FindsBytesThatAreLeftOver) {
  EXPECT_EQ(
      findings(sound_package_with_vproc() + "12"),
      lines{":0x13c8: error: 2 bytes are left over after the last record [bytes-left-over]\n"});
}

TEST(CheckPackage, DoesNotTakeAPackageWithoutDvisForSound) {
  EXPECT_EQ(findings(header(0)),
            lines{":0x8: error: the package has no DVI, so nothing was checked [no-dvis]\n"});
}

TEST(CheckPackage, FindsThatRequiredVprocRecordsAreMissing) {
  constexpr check_scope required{.vproc = vproc_demand::required};
  EXPECT_EQ(findings(sound_package_with_vproc(), required), lines{});
  EXPECT_EQ(findings(sound_package(), required),
            lines{":0x12a4: error: the package has no vproc records [vproc-missing]\n"});
}

TEST(CheckPackage, FindsForbiddenVprocRecords) {
  constexpr check_scope forbidden{.vproc = vproc_demand::forbidden};
  EXPECT_EQ(findings(sound_package(), forbidden), lines{});
  EXPECT_EQ(findings(sound_package_with_vproc(), forbidden),
            lines{":0x12a4: error: the package has vproc records [vproc-present]\n"});
}

TEST(CheckPackage, FindsTextsWithoutANul) {
  EXPECT_EQ(findings(changed(sound_package(), 0x28, std::string(128, 'n'))),
            lines{":0x28: error: DVI 0: dag_name has no NUL in its field [text-without-nul]\n"});
  EXPECT_EQ(findings(changed(sound_package(), 0x144 + 56, std::string(512, 'n'))),
            lines{":0x17c: error: input 0 of DVI 0: port_name has no NUL in its field "
                  "[text-without-nul]\n"});
  EXPECT_EQ(findings(changed(sound_package(), 0xE2C + 568, std::string(512, 'n'))),
            lines{":0x1064: error: output 0 of DVI 1: layer_name has no NUL in its field "
                  "[text-without-nul]\n"});
  EXPECT_EQ(
      findings(changed(sound_package_with_vproc(), 0x12BC, std::string(128, 'n'))),
      lines{
          ":0x12bc: error: variable 0 of DVI 0: var has no NUL in its field [text-without-nul]\n"});
  EXPECT_EQ(
      findings(changed(sound_package_with_vproc(), 0x1344, std::string(128, 'n'))),
      lines{
          ":0x1344: error: SMB 0 of DVI 0: smb_name has no NUL in its field [text-without-nul]\n"});
}

TEST(CheckPackage, TakesTextsThatFillTheirFieldsButForTheNul) {
  std::string package = changed(sound_package(), 0x28, std::string(127, 'n'));
  package = changed(package, 0x144 + 56, std::string(511, 'n'));
  EXPECT_EQ(findings(package), lines{});
}

TEST(CheckPackage, FindsBytesAfterANul) {
  EXPECT_EQ(findings(changed(sound_package(), 0xA7, "x")),
            lines{":0xa7: error: DVI 0: dag_name goes on after its NUL [bytes-after-nul]\n"});
  EXPECT_EQ(
      findings(changed(sound_package(), 0x144 + 56 + 5, "x")),
      lines{
          ":0x181: error: input 0 of DVI 0: port_name goes on after its NUL [bytes-after-nul]\n"});
  EXPECT_EQ(
      findings(changed(sound_package(), 0x144 + 1079, "x")),
      lines{
          ":0x57b: error: input 0 of DVI 0: layer_name goes on after its NUL [bytes-after-nul]\n"});
}

TEST(CheckPackage, FindsEmptyNames) {
  EXPECT_EQ(findings(changed(sound_package(), 0x28, std::string(128, '\0'))),
            lines{":0x28: error: DVI 0: dag_name is empty [empty-name]\n"});
  EXPECT_EQ(findings(changed(sound_package(), 0x144 + 56, std::string(512, '\0'))),
            lines{":0x17c: error: input 0 of DVI 0: port_name is empty [empty-name]\n"});
  EXPECT_EQ(findings(changed(sound_package_with_vproc(), 0x12BC, std::string(128, '\0'))),
            lines{":0x12bc: error: variable 0 of DVI 0: var is empty [empty-name]\n"});
  EXPECT_EQ(findings(changed(sound_package_with_vproc(), 0x1344, std::string(128, '\0'))),
            lines{":0x1344: error: SMB 0 of DVI 0: smb_name is empty [empty-name]\n"});
}

TEST(CheckPackage, TakesAnEmptyLayerName) {
  EXPECT_EQ(findings(changed(sound_package(), 0x144 + 568, std::string(512, '\0'))), lines{});
}

TEST(CheckPackage, FindsUnsafeDagNames) {
  EXPECT_EQ(findings(changed(sound_package(), 0x28, {".\0\0\0\0", 5})),
            lines{":0x28: error: DVI 0: dag_name \".\" stands for a folder [unsafe-dag-name]\n"});
  EXPECT_EQ(findings(changed(sound_package(), 0x28, {"..\0\0\0", 5})),
            lines{":0x28: error: DVI 0: dag_name \"..\" stands for a folder [unsafe-dag-name]\n"});
  EXPECT_EQ(findings(changed(sound_package(), 0x28, "a/b")),
            lines{":0x28: error: DVI 0: dag_name \"a/bst\" holds a slash [unsafe-dag-name]\n"});
  for (const char control : {'\x01', '\x1F', '\x7F'}) {
    const lines found = findings(changed(sound_package(), 0x28, {&control, 1}));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_TRUE(found[0].ends_with("irst\" holds a control character [unsafe-dag-name]\n"));
  }
}

TEST(CheckPackage, TakesDagNamesThatAreOddButSafe) {
  for (const char* name : {"...  ", "a b c", ".abcd", "a\\b:c", "\xFF\x80\xC3\xA4", "-rf *"}) {
    EXPECT_EQ(findings(changed(sound_package(), 0x28, name)), lines{}) << name;
  }
}

TEST(CheckPackage, FindsReservedBytesThatAreNotZero) {
  EXPECT_EQ(findings(changed(sound_package(), 0xF, "\x07")),
            lines{":0xf: error: DVI 0: a reserved byte is 7, not 0 [reserved-not-zero]\n"});
  EXPECT_EQ(
      findings(changed(sound_package(), 0x144 + 22, "\x01\xFF")),
      (lines{
          ":0x15a: error: input 0 of DVI 0: a reserved byte is 1, not 0 [reserved-not-zero]\n",
          ":0x15b: error: input 0 of DVI 0: a reserved byte is 255, not 0 [reserved-not-zero]\n"}));
}

TEST(CheckPackage, FindsFlagsThatMeanNothing) {
  EXPECT_EQ(findings(changed(sound_package(), 0x144 + 21, "\x3F")), lines{});
  EXPECT_EQ(findings(changed(sound_package(), 0x144 + 21, "\x40")),
            lines{":0x159: error: input 0 of DVI 0: flags is 64, but bits 6 and 7 must be 0 "
                  "[unknown-flags]\n"});
  EXPECT_EQ(findings(changed(sound_package(), 0x144 + 21, "\x80")),
            lines{":0x159: error: input 0 of DVI 0: flags is 128, but bits 6 and 7 must be 0 "
                  "[unknown-flags]\n"});
}

TEST(CheckPackage, FindsAWrongVprocId) {
  EXPECT_EQ(findings(changed(sound_package(), 0xA9, "\x02")),
            lines{":0xa9: error: DVI 1: vproc_id is 2, not 1 [wrong-vproc-id]\n"});
}

TEST(CheckPackage, TakesTheLowByteOfAPositionForItsVprocId) {
  std::string package = header(257);
  for (unsigned i = 0; i < 257; ++i) {
    package += bytes(sound_dvi(static_cast<std::uint8_t>(i), std::to_string(i), 0, 1));
  }
  for (unsigned i = 0; i < 257; ++i) {
    package += bytes(sound_port("out", 0)) + image();
  }
  EXPECT_EQ(findings(package), lines{});
}

TEST(CheckPackage, WarnsOfADagNameThatRepeats) {
  EXPECT_EQ(
      findings(changed(sound_package(), 0xA8 + 28, {"first\0", 6})),
      lines{
          ":0xc4: warning: DVI 1: dag_name \"first\" is that of DVI 0 too [repeated-dag-name]\n"});
}

TEST(CheckPackage, WarnsOfControlCharactersInOtherNames) {
  EXPECT_EQ(findings(changed(sound_package(), 0x144 + 56, "\x1B[0m")),
            lines{":0x17c: warning: input 0 of DVI 0: port_name \"\\x1b[0m\" holds a control "
                  "character [control-character]\n"});
  EXPECT_EQ(findings(changed(sound_package(), 0x144 + 568, "\x7F")),
            lines{":0x37c: warning: input 0 of DVI 0: layer_name \"\\x7fayer\" holds a control "
                  "character [control-character]\n"});
  EXPECT_EQ(findings(changed(sound_package_with_vproc(), 0x12BC, "\n")),
            lines{":0x12bc: warning: variable 0 of DVI 0: var \"\\x0aain\" holds a control "
                  "character [control-character]\n"});
  EXPECT_EQ(findings(changed(sound_package_with_vproc(), 0x1344, "\t")),
            lines{":0x1344: warning: SMB 0 of DVI 0: smb_name \"\\x09ut\" holds a control "
                  "character [control-character]\n"});
}

TEST(CheckPackage, WarnsOfADviWithoutPorts) {
  EXPECT_EQ(findings(header(1) + bytes(sound_dvi(0, "net", 0, 0)) + image()),
            lines{":0x1c: warning: DVI 0 has no ports [dvi-without-ports]\n"});
}

TEST(CheckPackage, WarnsOfADviWithoutImage) {
  dvi_desc record = dvi("net", 0, 1);
  EXPECT_EQ(findings(header(1) + bytes(record) + bytes(port("data", ""))),
            (lines{":0x14: warning: DVI 0 has no image [dvi-without-image]\n",
                   ":0x18: warning: DVI 0: dvi_dag_vaddr is 8192, outside the image, which has 0 "
                   "bytes from 4096 on [dagbin-outside-image]\n"}));
}

TEST(CheckPackage, WarnsOfADagBinaryOutsideItsImage) {
  EXPECT_EQ(findings(changed(sound_package(), 0x18, word(0x103F))), lines{});
  EXPECT_EQ(findings(changed(sound_package(), 0x18, word(0x1040))),
            lines{":0x18: warning: DVI 0: dvi_dag_vaddr is 4160, outside the image, which has 64 "
                  "bytes from 4096 on [dagbin-outside-image]\n"});
  EXPECT_EQ(findings(changed(sound_package(), 0x18, word(0xFFF))),
            lines{":0x18: warning: DVI 0: dvi_dag_vaddr is 4095, outside the image, which has 64 "
                  "bytes from 4096 on [dagbin-outside-image]\n"});
}

TEST(CheckPackage, TakesAnImageThatEndsBehindTheLastAddress) {
  EXPECT_EQ(
      findings(changed(sound_package(), 0x10, word(0xFFFFFFF0) + word(64) + word(0xFFFFFFFF))),
      lines{});
}

TEST(CheckPackage, WarnsOfAnInputThatDiffersFromTheOutputOfItsName) {
  std::string package = changed(sound_package(), 0x9F4, word(1) + word(2) + word(3) + word(4));
  EXPECT_EQ(findings(package),
            lines{":0x9f4: warning: input 0 of DVI 1 \"middle\" differs from output 0 of DVI 0: P "
                  "is 1, not 0; D is 2, not 0; H is 3, not 0; W is 4, not 16 [port-mismatch]\n"});
  package = changed(sound_package(), 0x9F4 + 20, "\x05");
  package = changed(package, 0x9F4 + 44, std::string_view("\x01\x08\x02\x03", 4));
  package = changed(package, 0x9F4 + 48, word(17) + word(18));
  EXPECT_EQ(findings(package),
            lines{":0x9f4: warning: input 0 of DVI 1 \"middle\" differs from output 0 of DVI 0: "
                  "dram_format is 5, not 0; sign is 1, not 0; datasize is 8, not 0; expoffset is "
                  "2, not -3; expbits is 3, not 0; port_size is 17, not 16; port_byte_offset is "
                  "18, not 16 [port-mismatch]\n"});
}

TEST(CheckPackage, ComparesAnInputWithTheLastOutputOfItsNameInEarlierDvis) {
  const auto package = [](std::uint32_t first, std::uint32_t second) {
    return header(3) + bytes(sound_dvi(0, "a", 0, 1)) + bytes(sound_dvi(1, "b", 0, 1)) +
           bytes(sound_dvi(2, "c", 1, 1)) + bytes(sound_port("x", first)) + image() +
           bytes(sound_port("x", second)) + image() + bytes(sound_port("x", 16)) +
           bytes(sound_port("x", 32)) + image();
  };
  EXPECT_EQ(findings(package(0, 16)), lines{});
  EXPECT_EQ(findings(package(16, 0)),
            lines{":0xad0: warning: input 0 of DVI 2 \"x\" differs from output 0 of DVI 1: "
                  "port_byte_offset is 16, not 0 [port-mismatch]\n"});
}

TEST(CheckPackage, NotesImagesThatOverlapWhenAsked) {
  const std::string package =
      changed(sound_package(), 0xA8 + 4, word(0x103F) + word(64) + word(0x103F));
  EXPECT_EQ(findings(package), lines{});
  EXPECT_EQ(findings(package, with_notes),
            lines{":0xac: note: DVI 1: the image, 64 bytes from 4159 on, shares addresses with "
                  "that of DVI 0, 64 bytes from 4096 on [images-overlap]\n"});
  EXPECT_EQ(findings(changed(sound_package(), 0xA8 + 4, word(0x1040) + word(64) + word(0x1040)),
                     with_notes),
            lines{});
}

TEST(CheckPackage, NotesPortsThatShareBytesWhenAsked) {
  const std::string package = changed(sound_package(), 0xE2C + 52, word(31));
  EXPECT_EQ(findings(package), lines{});
  EXPECT_EQ(findings(package, with_notes),
            lines{":0xe60: note: output 0 of DVI 1, 16 bytes from 31 on, shares bytes with input 0 "
                  "of DVI 1, 16 bytes from 16 on [ports-overlap]\n"});
}

TEST(CheckPackage, ChecksWhatCanBeReachedOfADamagedPackage) {
  const std::string package = changed(sound_package(), 0x28, "a/b");
  EXPECT_EQ(findings(package.substr(0, 0x12A3)),
            (lines{":0x1264: error: DVI 1: the image is cut: 64 bytes are needed, and 63 are left "
                   "[image-cut]\n",
                   ":0x28: error: DVI 0: dag_name \"a/bst\" holds a slash [unsafe-dag-name]\n"}));
}

}  // namespace
}  // namespace morvane::test

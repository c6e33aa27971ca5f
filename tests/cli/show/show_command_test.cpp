// morvane show, as a user starts it.
#include <gtest/gtest.h>

#include "cli/outcome.h"
#include "harness/packages.h"

namespace morvane::test {
namespace {

/// A package with one of everything, and a different value in every field.
std::string varied_package() {
  dvi_desc record = dvi("net", 16, 1, 1);
  record.dvi_id = 7;
  record.dvi_ppv = 1;
  const port_desc input = varied_port("data", "net/in");
  port_desc output = port("\xC3\xA4\x1B\xFF", "");
  output.sign = output.datasize = output.expbits = 255;
  output.expoffset = -1;
  return header(1) + bytes(record) + bytes(input) + bytes(output) + "0123456789abcdef" +
         bytes(vproc_desc{1, 1, 268}) + bytes(variable("gain")) + bytes(smb("lut"));
}

using ShowCommand = morvane_test;

TEST_F(ShowCommand, ShowsATableOfEveryDvi) {
  folder.write("net.bin", varied_package());
  expect_morvane(
      {"show", "net.bin"}, 0,
      "net.bin: 2624 bytes, version 2.1.6 ( HASH b3b3814 ), dvi_num 1, with vproc records\n"
      "\n"
      "DVI 0: net\n"
      "  dvi_id 7, vproc_id 0, dvi_ppv 1\n"
      "  image: offset 0x918, 16 bytes, address 0x1000, DAG binary at 0x2000\n"
      "  port      name       P  D  H   W  format  data              size  offset\n"
      "  input 0   data       1  2  3   4       6  1,16,-15,5  4294967295      13\n"
      "  output 0  \xC3\xA4\\x1b\\xff  0  0  0  16       0  -                    0       0\n"
      "  variable  name  bit offset  bits\n"
      "  0         gain           8    16\n"
      "  SMB  name  offset\n"
      "  0    lut      256\n"
      "\n"
      "data: sign, data size, exponent offset, exponent bits; - when not given\n");
}

TEST_F(ShowCommand, ShowsADataFormatOfWhichAnyNumberIsGiven) {
  std::array<port_desc, 5> ports{};
  ports.fill(port("data", ""));
  for (port_desc& each : ports) {
    each.sign = each.datasize = each.expbits = 255;
    each.expoffset = -1;
  }
  ports[1].sign = 1;
  ports[2].datasize = 16;
  ports[3].expoffset = 0;
  ports[4].expbits = 5;
  std::string package = header(1) + bytes(sound_dvi(0, "net", 5, 0));
  for (const port_desc& each : ports) {
    package += bytes(each);
  }
  folder.write("net.bin", package + image());
  const std::string shown = morvane({"show", "net.bin"}).output;
  for (const char* row : {"input 0  data  0  0  0  16       0  -      ", "0  1,255,-1,255  ",
                          "0  255,16,-1,255  ", "0  255,255,0,255  ", "0  255,255,-1,5  "}) {
    EXPECT_NE(shown.find(row), std::string::npos) << row << "is missing in\n" << shown;
  }
}

TEST_F(ShowCommand, LeavesOutTablesWithoutRows) {
  folder.write("net.bin", header(1) + bytes(sound_dvi(0, "net", 0, 0)) + image());
  expect_morvane(
      {"show", "net.bin"}, 0,
      "net.bin: 232 bytes, version 2.1.6 ( HASH b3b3814 ), dvi_num 1, without vproc records\n"
      "\n"
      "DVI 0: net\n"
      "  dvi_id 0, vproc_id 0, dvi_ppv 0\n"
      "  image: offset 0xa8, 64 bytes, address 0x1000, DAG binary at 0x1000\n");
}

TEST_F(ShowCommand, WritesEverythingAsJson) {
  folder.write("net.bin", varied_package());
  expect_morvane(
      {"show", "--json", "net.bin"}, 0,
      R"({"file": "net.bin", "size": 2624, "damage": null, )"
      R"("pkg_header": {"offset": 0, "version": 33619974, "HASH": 188430356, "dvi_num": 1}, )"
      R"("has_vproc": true, "dvis": [)"
      "\n"
      R"(  {"offset": 12, "dvi_id": 7, "vproc_id": 0, "dvi_ppv": 1, "reserved": 0, )"
      R"("dvi_img_vaddr": 4096, "dvi_img_size": 16, "dvi_dag_vaddr": 8192, "input_num": 1, )"
      R"("output_num": 1, "dvi_pkg_size": 2176, "dag_name": "net", "inputs": [)"
      "\n"
      R"(    {"offset": 168, "P": 1, "D": 2, "H": 3, "W": 4, "pitch": 5, "dram_format": 6, )"
      R"("flags": 4, "reserved": [0, 0], "drotate_bit_offset": 8, "hflip_bit_offset": 9, )"
      R"("vflip_bit_offset": 10, "dflip_bit_offset": 11, "pflip_bit_offset": 12, "sign": 1, )"
      R"("datasize": 16, "expoffset": -15, "expbits": 5, "port_size": 4294967295, )"
      R"("port_byte_offset": 13, "port_name": "data", "layer_name": "net/in"}], "outputs": [)"
      "\n"
      R"(    {"offset": 1248, "P": 0, "D": 0, "H": 0, "W": 16, "pitch": 0, "dram_format": 0, )"
      R"("flags": 4, "reserved": [0, 0], "drotate_bit_offset": 0, "hflip_bit_offset": 0, )"
      R"("vflip_bit_offset": 0, "dflip_bit_offset": 0, "pflip_bit_offset": 0, "sign": 255, )"
      R"("datasize": 255, "expoffset": -1, "expbits": 255, "port_size": 0, )"
      "\"port_byte_offset\": 0, \"port_name\": \"\\u00e4\\u001b\\ufffd\", "
      R"("layer_name": ""}], "image": {"offset": 2328, "size": 16}, )"
      R"("vproc": {"offset": 2344, "variable_num": 1, "smb_num": 1, "vproc_records_size": 268, )"
      R"("variables": [)"
      "\n"
      R"(    {"offset": 2356, "var": "gain", "boffset": 8, "bsize": 16}], "smbs": [)"
      "\n"
      R"(    {"offset": 2492, "smb_name": "lut", "vbase_byte_offset": 256}]}}]})"
      "\n");
}

TEST_F(ShowCommand, AddsTheDigestOfEveryImageWhenAsked) {
  folder.write("net.bin",
               header(2) + bytes(sound_dvi(0, "a", 0, 0)) + bytes(dvi("b", 0)) + image());
  // As xxhsum -H2 prints them for 64 bytes of 0xA5, and for no bytes.
  const run_result json = morvane({"show", "--digest", "--json", "net.bin"});
  EXPECT_NE(json.output.find(R"("size": 64, "xxh3_128": "aff138a654fc51d2378fe6df5b0e96a2"})"),
            std::string::npos)
      << json.output;
  EXPECT_NE(json.output.find(R"("size": 0, "xxh3_128": "99aa06d3014798d86001c324468d497f"})"),
            std::string::npos);
  const run_result tables = morvane({"show", "--digest", "net.bin"});
  EXPECT_NE(tables.output.find("\n  xxh3_128: aff138a654fc51d2378fe6df5b0e96a2\n"),
            std::string::npos);
}

TEST_F(ShowCommand, ShowsWhatComesBeforeADamageAndEndsWithStatus1) {
  folder.write("net.bin", sound_package().substr(0, 0x12A3));
  const std::string warning =
      "morvane: net.bin: the package is damaged; only what comes before the damage is shown, "
      "and morvane check tells more\n";
  const run_result tables = morvane({"show", "net.bin"});
  EXPECT_EQ(tables.status, 1);
  EXPECT_TRUE(tables.output.starts_with(
      "net.bin: 4771 bytes, version 2.1.6 ( HASH b3b3814 ), dvi_num 2\n\nDVI 0: first\n"));
  EXPECT_EQ(tables.output.find("DVI 1"), std::string::npos);
  EXPECT_EQ(tables.diagnostics, warning);
  const run_result json = morvane({"show", "--json", "net.bin"});
  EXPECT_EQ(json.status, 1);
  EXPECT_TRUE(json.output.starts_with(
      R"({"file": "net.bin", "size": 4771, "damage": {"code": "image-cut", "offset": 4708, )"
      R"("claimed": 64, "present": 63}, "pkg_header": {"offset": 0, )"));
  EXPECT_NE(json.output.find(R"("has_vproc": null, )"), std::string::npos);
  EXPECT_EQ(json.diagnostics, warning);
}

TEST_F(ShowCommand, ShowsAFileThatIsShorterThanAHeader) {
  folder.write("net.bin", "short");
  EXPECT_EQ(morvane({"show", "net.bin"}).output, "net.bin: 5 bytes\n");
  EXPECT_EQ(morvane({"show", "--json", "--quiet", "net.bin"}).output,
            R"({"file": "net.bin", "size": 5, "damage": {"code": "header-cut", "offset": 0, )"
            R"("claimed": 12, "present": 5}, "pkg_header": null, "has_vproc": null, "dvis": []})"
            "\n");
}

TEST_F(ShowCommand, ShowsManyDvis) {
  constexpr std::uint32_t dvis = 2000;
  std::string package = header(dvis);
  std::string expected =
      "net.bin: 312012 bytes, version 2.1.6 ( HASH b3b3814 ), dvi_num 2000, "
      "without vproc records\n";
  for (std::uint32_t i = 0; i < dvis; ++i) {
    const std::string name = "net" + std::to_string(i);
    package += bytes(dvi(name, 0, 0, 0));
    expected += "\nDVI " + std::to_string(i) + ": " + name +
                "\n  dvi_id 0, vproc_id 0, dvi_ppv 0\n"
                "  image: offset 0x4c2cc, 0 bytes, address 0x1000, DAG binary at 0x2000\n";
  }
  folder.write("net.bin", package);
  expect_morvane({"show", "net.bin"}, 0, expected);
}

TEST_F(ShowCommand, EndsWithStatus2WhenThePackageCannotBeRead) {
  expect_morvane({"show", "none"}, 2, "", "morvane: none: No such file or directory\n");
}

TEST_F(ShowCommand, NeedsTheMemoryOfTheLargestDvi) {
  if (!run_prefix().empty()) {
    GTEST_SKIP() << "an emulator or checker needs memory of its own";
  }
  constexpr std::uint32_t dvis = 64;
  std::string package = header(dvis);
  for (std::uint32_t i = 0; i < dvis; ++i) {
    package += bytes(dvi("net", std::uint32_t{1} << 20U, 0, 0));
  }
  package.append(std::size_t{dvis} << 20U, 'x');
  folder.write("net.bin", package);
  const long idle = morvane({"--version"}).peak_kib;
  const run_result run = morvane({"show", "--json", "--digest", "net.bin"});
  EXPECT_EQ(run.status, 0);
  EXPECT_LT(run.peak_kib, idle + 4 * 1024);
}

}  // namespace
}  // namespace morvane::test

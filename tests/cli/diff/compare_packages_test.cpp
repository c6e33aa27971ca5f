// What `morvane diff` says about two packages: one test for each kind of difference.
#include "cli/diff/compare_packages.h"

#include <gtest/gtest.h>

#include <vector>

#include "cli/diff/difference_output.h"
#include "harness/packages.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

using told_lines = std::vector<std::string>;

told_lines differences(std::string_view old_bytes, std::string_view new_bytes) {
  const scratch_folder folder;
  folder.write("old.bin", old_bytes);
  folder.write("new.bin", new_bytes);
  cli::opened_package old_package;
  cli::opened_package new_package;
  EXPECT_EQ(open_package(folder.path("old.bin"), old_package), 0);
  EXPECT_EQ(open_package(folder.path("new.bin"), new_package), 0);
  told_lines found;
  cli::console streams{.quiet = true};
  compare_packages(old_package, new_package, streams,
                   [&](const cli::difference& one) { found.push_back(difference_line(one)); });
  return found;
}

std::string changed(std::string package, std::size_t offset, char byte) {
  package[offset] = byte;
  return package;
}

/// A package of DVIs without ports and images.
std::string package_of(const std::vector<std::string>& dag_names) {
  std::string package = header(static_cast<std::uint32_t>(dag_names.size()));
  for (const std::string& name : dag_names) {
    package += bytes(dvi(name, 0));
  }
  return package;
}

/// A package of one DVI with these input ports.
std::string package_with(const std::vector<port_desc>& inputs) {
  std::string package = header(1) + bytes(dvi("net", 0, static_cast<std::uint32_t>(inputs.size())));
  for (const port_desc& input : inputs) {
    package += bytes(input);
  }
  return package;
}

TEST(ComparePackages, TellsTheFieldsOfTheHeader) {
  EXPECT_EQ(differences(sound_package(), changed(sound_package(), 0, 7)),
            told_lines{"package: version: 33619974 -> 33619975\n"});
  EXPECT_EQ(differences(sound_package(), changed(sound_package(), 7, 0)),
            told_lines{"package: HASH: 188430356 -> 3880980\n"});
}

TEST(ComparePackages, TellsTheFieldsOfADvi) {
  const std::string old_package = header(1) + bytes(dvi("net", 0));
  dvi_desc other = dvi("net", 0);
  other.dvi_id = 1;
  other.vproc_id = 2;
  other.dvi_ppv = 3;
  other.reserved = 4;
  other.dvi_img_vaddr = 5;
  other.dvi_dag_vaddr = 4294967295;
  EXPECT_EQ(differences(old_package, header(1) + bytes(other)),
            (told_lines{"DVI \"net\": dvi_id: 0 -> 1\n", "DVI \"net\": vproc_id: 0 -> 2\n",
                        "DVI \"net\": dvi_ppv: 0 -> 3\n", "DVI \"net\": reserved: 0 -> 4\n",
                        "DVI \"net\": dvi_img_vaddr: 4096 -> 5\n",
                        "DVI \"net\": dvi_dag_vaddr: 8192 -> 4294967295\n"}));
}

TEST(ComparePackages, TellsTheFieldsOfAPort) {
  port_desc other{.P = 1,
                  .D = 2,
                  .H = 3,
                  .W = 4,
                  .pitch = 5,
                  .dram_format = 6,
                  .flags = 7,
                  .reserved = {8, 9},
                  .drotate_bit_offset = 10,
                  .hflip_bit_offset = 11,
                  .vflip_bit_offset = 12,
                  .dflip_bit_offset = 13,
                  .pflip_bit_offset = 14,
                  .sign = 15,
                  .datasize = 16,
                  .expoffset = -17,
                  .expbits = 18,
                  .port_size = 19,
                  .port_byte_offset = 20,
                  .port_name = "data",
                  .layer_name = "net/in"};
  EXPECT_EQ(differences(package_with({port("data", "")}), package_with({other})),
            (told_lines{"DVI \"net\": input \"data\": P: 0 -> 1\n",
                        "DVI \"net\": input \"data\": D: 0 -> 2\n",
                        "DVI \"net\": input \"data\": H: 0 -> 3\n",
                        "DVI \"net\": input \"data\": W: 16 -> 4\n",
                        "DVI \"net\": input \"data\": pitch: 0 -> 5\n",
                        "DVI \"net\": input \"data\": dram_format: 0 -> 6\n",
                        "DVI \"net\": input \"data\": flags: 4 -> 7\n",
                        "DVI \"net\": input \"data\": reserved: [0, 0] -> [8, 9]\n",
                        "DVI \"net\": input \"data\": drotate_bit_offset: 0 -> 10\n",
                        "DVI \"net\": input \"data\": hflip_bit_offset: 0 -> 11\n",
                        "DVI \"net\": input \"data\": vflip_bit_offset: 0 -> 12\n",
                        "DVI \"net\": input \"data\": dflip_bit_offset: 0 -> 13\n",
                        "DVI \"net\": input \"data\": pflip_bit_offset: 0 -> 14\n",
                        "DVI \"net\": input \"data\": sign: 0 -> 15\n",
                        "DVI \"net\": input \"data\": datasize: 0 -> 16\n",
                        "DVI \"net\": input \"data\": expoffset: -3 -> -17\n",
                        "DVI \"net\": input \"data\": expbits: 0 -> 18\n",
                        "DVI \"net\": input \"data\": port_size: 0 -> 19\n",
                        "DVI \"net\": input \"data\": port_byte_offset: 0 -> 20\n",
                        "DVI \"net\": input \"data\": layer_name: \"\" -> \"net/in\"\n"}));
}

TEST(ComparePackages, TellsTheFieldsOfVariablesAndSmbBlocks) {
  std::string other = sound_package_with_vproc();
  other[0x12bc + 128] = 1;  // boffset
  other[0x12bc + 132] = 2;  // bsize
  other[0x1344 + 128] = 3;  // vbase_byte_offset
  EXPECT_EQ(differences(sound_package_with_vproc(), other),
            (told_lines{"DVI \"first\": variable \"gain\": boffset: 8 -> 1\n",
                        "DVI \"first\": variable \"gain\": bsize: 16 -> 2\n",
                        "DVI \"first\": SMB \"lut\": vbase_byte_offset: 256 -> 259\n"}));
}

TEST(ComparePackages, TellsThatTheVprocRecordsVanished) {
  EXPECT_EQ(differences(sound_package_with_vproc(), sound_package()),
            (told_lines{"package: has_vproc: true -> false\n",
                        "DVI \"first\": variable \"gain\": vanished from position 0\n",
                        "DVI \"first\": SMB \"lut\": vanished from position 0\n"}));
}

TEST(ComparePackages, TellsTheFieldsOfTheVprocDescription) {
  EXPECT_EQ(differences(sound_package() + bytes(vproc_desc{}) + bytes(vproc_desc{}),
                        sound_package_with_vproc()),
            (told_lines{"DVI \"first\": variable_num: 0 -> 1\n", "DVI \"first\": smb_num: 0 -> 1\n",
                        "DVI \"first\": vproc_records_size: 0 -> 268\n",
                        "DVI \"first\": variable \"gain\": appeared at position 0\n",
                        "DVI \"first\": SMB \"lut\": appeared at position 0\n"}));
}

TEST(ComparePackages, TellsWhichDvisAppearedVanishedAndMoved) {
  EXPECT_EQ(differences(package_of({"a", "b", "c"}), package_of({"c", "b", "d"})),
            (told_lines{"DVI \"a\": vanished from position 0\n",
                        "DVI \"c\": moved from position 2 to 0\n",
                        "DVI \"d\": appeared at position 2\n"}));
}

TEST(ComparePackages, MatchesTheNthDviOfANameWithTheNth) {
  EXPECT_EQ(differences(package_of({"a", "b", "a"}), package_of({"a", "a", "b", "a"})),
            (told_lines{"package: dvi_num: 3 -> 4\n", "DVI \"b\": moved from position 1 to 2\n",
                        "DVI \"a\" #2: moved from position 2 to 1\n",
                        "DVI \"a\" #3: appeared at position 3\n"}));
}

TEST(ComparePackages, TellsWhichPortsAppearedVanishedAndMoved) {
  EXPECT_EQ(differences(package_with({port("a", ""), port("b", ""), port("c", "")}),
                        package_with({port("c", ""), port("b", ""), port("d", "")})),
            (told_lines{"DVI \"net\": input \"a\": vanished from position 0\n",
                        "DVI \"net\": input \"c\": moved from position 2 to 0\n",
                        "DVI \"net\": input \"d\": appeared at position 2\n"}));
}

TEST(ComparePackages, TakesAnInputThatBecameAnOutputForAnotherPort) {
  EXPECT_EQ(differences(header(1) + bytes(dvi("net", 0, 1, 0)) + bytes(port("p", "")),
                        header(1) + bytes(dvi("net", 0, 0, 1)) + bytes(port("p", ""))),
            (told_lines{"DVI \"net\": input_num: 1 -> 0\n", "DVI \"net\": output_num: 0 -> 1\n",
                        "DVI \"net\": input \"p\": vanished from position 0\n",
                        "DVI \"net\": output \"p\": appeared at position 0\n"}));
}

TEST(ComparePackages, CountsTheBytesOfAnImageThatDiffer) {
  const std::string start = header(1) + bytes(dvi("net", 8));
  EXPECT_EQ(differences(start + "abcdefgh", start + "abXdeXgh"),
            told_lines{"DVI \"net\": image: 8 bytes, 2 differ, the first at 0x2\n"});
  EXPECT_EQ(differences(start + "abcdefgh", start + "abcdefgX"),
            told_lines{"DVI \"net\": image: 8 bytes, 1 differs, the first at 0x7\n"});
}

TEST(ComparePackages, TakesTheBytesThatOnlyOneImageHasForDifferent) {
  EXPECT_EQ(
      differences(header(1) + bytes(dvi("net", 4)) + "abcd",
                  header(1) + bytes(dvi("net", 6)) + "abcdef"),
      (told_lines{"DVI \"net\": dvi_img_size: 4 -> 6\n", "DVI \"net\": dvi_pkg_size: 4 -> 6\n",
                  "DVI \"net\": image: 4 -> 6 bytes, 2 differ, the first at 0x4\n"}));
  EXPECT_EQ(
      differences(header(1) + bytes(dvi("net", 3)) + "abc", header(1) + bytes(dvi("net", 1)) + "a")
          .back(),
      "DVI \"net\": image: 3 -> 1 byte, 2 differ, the first at 0x1\n");
  EXPECT_EQ(
      differences(header(1) + bytes(dvi("net", 1)) + "a", header(1) + bytes(dvi("net", 1)) + "b"),
      told_lines{"DVI \"net\": image: 1 byte, 1 differs, the first at 0x0\n"});
}

TEST(ComparePackages, FindsADifferenceBehindTheFirstMebibyteOfAnImage) {
  const std::string start = header(1) + bytes(dvi("net", 3 << 20));
  const std::string image(3 << 20, 'a');
  EXPECT_EQ(differences(start + image, changed(start + image, start.size() + 0x200001, 'b')),
            told_lines{"DVI \"net\": image: 3145728 bytes, 1 differs, the first at 0x200001\n"});
}

TEST(ComparePackages, TellsOfBytesAfterTheNulOfAText) {
  EXPECT_EQ(differences(sound_package(), changed(sound_package(), 0xc + 28 + 6, 'x')),
            told_lines{"DVI \"first\": bytes after the NUL of a text differ\n"});
  EXPECT_EQ(differences(sound_package(), changed(sound_package(), 0x144 + 56 + 5, 'x')),
            told_lines{"DVI \"first\": input \"data\": bytes after the NUL of a text differ\n"});
}

TEST(ComparePackages, TakesWhatCannotBeWalkedForMissingAndComparesTheBytesToo) {
  EXPECT_EQ(differences(sound_package(), sound_package().substr(0, 0x9f4 + 1080)),
            (told_lines{"DVI \"second\": vanished from position 1\n",
                        "package: 4772 -> 3628 bytes, 1144 differ, the first at 0xe2c\n"}));
  EXPECT_EQ(differences(sound_package(), ""),
            (told_lines{"DVI \"first\": vanished from position 0\n",
                        "DVI \"second\": vanished from position 1\n",
                        "package: 4772 -> 0 bytes, 4772 differ, the first at 0x0\n"}));
}

}  // namespace
}  // namespace morvane::test

// Pack, inspect, and pack the output of the inspection: images and records do not change.
#include <gtest/gtest.h>

#include <filesystem>

#include "end_to_end/compiler_output.h"
#include "end_to_end/expectations.h"
#include "end_to_end/package_records.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

/// Inspects first.bin and packs the parse folder as second.bin.
void go_round(const scratch_folder& folder) {
  EXPECT_EQ(run_tool({"-f", "first.bin", "-v", "-c"}, folder.path()).status, 1);
  EXPECT_EQ(run_tool({"-d", "parse", "-f", "second.bin", "-c"}, folder.path()).status, 0);
}

TEST(RoundTrip, KeepsEveryRecordAndImageWhereDagNamesCarryNoIndex) {
  const scratch_folder folder;
  const std::string package = bytes_of_hex(expected_file("two_dags/package.hex"));
  folder.write("first.bin", package);
  go_round(folder);
  // Without an index both DVIs have the index 0, and their order is that of the folder.
  const std::string stem_dvi = package.substr(12 + 2, 154);
  const std::string head_dvi = package.substr(168 + 2, 154);
  const std::string stem_block = package.substr(324, 2184);
  const std::string head_block = package.substr(2508, 1090);
  const std::string stem_vproc = package.substr(3598, 12);
  const std::string head_vproc = package.substr(3610, 12);
  const std::string stem_records = package.substr(3622, 404);
  const std::string head_records = package.substr(4026, 264);
  const std::string first_ids("\0\0", 2);
  const std::string second_ids("\0\1", 2);
  const std::string second = folder.read("second.bin");
  if (second.substr(40, 4) == "stem") {
    expect_bytes(second, package_header(2) + first_ids + stem_dvi + second_ids + head_dvi +
                             stem_block + head_block + stem_vproc + head_vproc + stem_records +
                             head_records);
  } else {
    expect_bytes(second, package_header(2) + first_ids + head_dvi + second_ids + stem_dvi +
                             head_block + stem_block + head_vproc + stem_vproc + head_records +
                             stem_records);
  }
}

TEST(RoundTrip, OfTheSampleFolderGivesTheSamePackage) {
  const scratch_folder folder;
  const std::string sample = source_folder() + "/examples/wake_word";
  expect_run(run_tool({"-d", sample, "-f", "first.bin", "-c"}, folder.path()), 0,
             "warning: fail to find vproc self-defined variables in " + sample +
                 "/_wake_word_split_1.h\n"
                 "Save to file first.bin with file size 25379.\n"
                 "\n");
  go_round(folder);
  const std::string package = folder.read("first.bin");
  EXPECT_EQ(package.size(), 25379U);
  expect_bytes(folder.read("second.bin"), package);
  for (const char* image :
       {"wake_word_split_0.dvi", "wake_word_split_1.dvi", "wake_word_split_2.dvi"}) {
    expect_bytes(folder.read(std::string("parse/") + image), folder.read(sample + "/" + image));
  }
  EXPECT_EQ(folder.files("parse").size(), 6U);
}

TEST(SampleFolder, StandsWhereThePackageLayoutSays) {
  const scratch_folder folder;
  const std::string sample = source_folder() + "/examples/wake_word";
  run_tool({"-d", sample, "-f", "net.bin", "-c"}, folder.path());
  const std::string package = folder.read("net.bin");
  ASSERT_EQ(package.size(), 25379U);
  expect_bytes(package.substr(0, 168),
               package_header(3) + dvi_record({.ppv = 1,
                                               .img_vaddr = 2415919104,
                                               .img_size = 2304,
                                               .dag_vaddr = 2415919360,
                                               .input_num = 1,
                                               .output_num = 3,
                                               .pkg_size = 6624,
                                               .dag_name = "wake_word_split_0"}));
  expect_bytes(package.substr(480, 1080), port_record({.port_name = "audio",
                                                       .layer_name = "wake_word/input/audio",
                                                       .P = 1,
                                                       .D = 1,
                                                       .H = 1,
                                                       .W = 16000,
                                                       .pitch = 32000,
                                                       .flags = 0x04,
                                                       .hflip_bit_offset = 255984,
                                                       .sign = 1,
                                                       .datasize = 16,
                                                       .expoffset = 0xF1,
                                                       .expbits = 0,
                                                       .port_size = 32000}));
  const auto image = [&](const std::string& split) {
    return folder.read(sample + "/wake_word_split_" + split + ".dvi");
  };
  expect_bytes(package.substr(4800, 2304), image("0"));   // after 4 ports
  expect_bytes(package.substr(13584, 4096), image("1"));  // after 6 ports
  expect_bytes(package.substr(20920, 3083), image("2"));  // after 3 ports
  expect_bytes(package.substr(24003, 36),
               vproc_record(3, 2, 672) + no_vproc + vproc_record(2, 3, 668));
}

}  // namespace
}  // namespace morvane::test

// The inspection takes memory for what a file holds, not for what it claims. Measured is the
// greatest resident memory of the child process.

#include <gtest/gtest.h>

#include "harness/packages.h"
#include "harness/run_tool.h"
#include "harness/sanitizer.h"
#include "harness/scratch_folder.h"
#include "harness/test_size.h"

namespace morvane::test {
namespace {

constexpr long allowed_kib = 64 * 1024;

class MemoryFollowsTheFile : public testing::Test {
 protected:
  void SetUp() override {
    if (under_sanitizer || !run_prefix().empty()) {
      GTEST_SKIP() << "the memory of a sanitizer or a run prefix would be counted with the tool's";
    }
  }
};

/// The greatest resident memory of an inspection, in KiB.
long peak_of(const std::string& package) {
  const scratch_folder scratch(fast_folder());
  scratch.write("a.bin", package);
  const run_result run = run_program({tool_path(), "-f", "a.bin", "-v", "-c"}, scratch.path());
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.output.find(".dvi files are parsed to folder "), std::string::npos);
  return run.peak_kib;
}

void expect_modest(const std::string& package) {
  const long baseline = peak_of(header(0));
  const long peak = peak_of(package);
  std::printf("peak %ld KiB, baseline %ld KiB\n", peak, baseline);
  EXPECT_LT(peak - baseline, allowed_kib);
}

TEST_F(MemoryFollowsTheFile, WhateverAKibibytePromises) {
  for (std::string package :
       {header(1) + bytes(dvi("an image of two GiB", 0x7FFFFFFF)),
        header(1) + bytes(dvi("ports", 0, 400'000)),
        header(1) + bytes(dvi("vproc records", 0)) + bytes(vproc_desc{200'000, 200'000, 0}),
        header(40'000)}) {
    package.resize(1024, '\0');
    expect_modest(package);
  }
}

TEST_F(MemoryFollowsTheFile, AnImageOfAQuarterGibIsPackedAndExtracted) {
  constexpr std::uintmax_t image_size = std::uintmax_t{256} << 20;
  const scratch_folder scratch(fast_folder());
  scratch.write("in/a.dvi", "");
  std::filesystem::resize_file(scratch.path("in/a.dvi"), image_size);
  scratch.write("in/a.h", "#define a_DAG_NAME a\n#define a_image_size 268435456\n");
  const long baseline = peak_of(header(0));
  const run_result run =
      run_program({tool_path(), "-d", "in", "-f", "a.bin", "-v"}, scratch.path());
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(std::filesystem::file_size(scratch.path("parse/a.dvi")), image_size);
  std::printf("peak %ld KiB, baseline %ld KiB\n", run.peak_kib, baseline);
  EXPECT_LT(run.peak_kib - baseline, allowed_kib);
}

TEST_F(MemoryFollowsTheFile, ALongParseDirectoryIsNotKeptForEveryDvi) {
  constexpr int dvis = 4000;
  std::string package = header(dvis);
  for (int i = 0; i < dvis; ++i) {
    package += bytes(dvi("net" + std::to_string(i), 0));
  }
  const auto peak = [&](const std::string& parsedir) {
    const scratch_folder scratch(fast_folder());
    scratch.write("a.bin", package);
    const run_result run =
        run_program({tool_path(), "-f", "a.bin", "-p", parsedir, "-v"}, scratch.path());
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(scratch.exists("parse/net3999.dvi"));
    return run.peak_kib;
  };
  std::string long_way = ".";
  while (long_way.size() < 2040) {
    long_way += "/.";
  }
  const long near = peak(".");
  const long far = peak(long_way);
  std::printf("peak %ld KiB with a short path, %ld KiB with a long one\n", near, far);
  EXPECT_LT(far - near, 1024);  // a path per DVI would be 8 MiB
}

}  // namespace
}  // namespace morvane::test

// Images and packages of more than 2 and 4 GiB. Their files are sparse and in memory, where holes
// are read fast, and no image is written.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "end_to_end/compiler_output.h"
#include "end_to_end/expectations.h"
#include "end_to_end/package_records.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

constexpr std::uint32_t largest_image = 2147483647;

class HugeFiles : public testing::Test {
 protected:
  void SetUp() override {
    try {
      folder_ = std::make_unique<scratch_folder>("/dev/shm");
    } catch (const std::runtime_error&) {
      GTEST_SKIP() << "no folder in memory at /dev/shm";
    }
  }

  [[nodiscard]] const scratch_folder& folder() const { return *folder_; }

  /// Sets the length of a file without writing it.
  void stretch(const std::string& name, std::uint64_t length) const {
    std::error_code failed;
    std::filesystem::resize_file(folder().path(name), length, failed);
    ASSERT_FALSE(failed) << failed.message();
  }

 private:
  std::unique_ptr<scratch_folder> folder_;
};

TEST_F(HugeFiles, ARunningSizeBeyondTwoGigabytesIsShownNegative) {
  put_dag(folder(), "net",
          dag_lines("net", largest_image) + "/* HMB_input a */\n/* HMB_output b */\n");
  stretch("in/net.dvi", largest_image);
  expect_run(run_tool({"-d", "in", "-f", "/dev/null"}, folder().path()), 0,
             "Save to file /dev/null with file size -2147481321.\n\n");
}

TEST_F(HugeFiles, ARunningSizeBeyondFourGigabytesBeginsAgainAtZero) {
  put_dag(folder(), "net_split_0",
          dag_lines("first", largest_image) + "/* HMB_input a */\n/* HMB_output b */\n");
  put_dag(folder(), "net_split_1",
          dag_lines("second", largest_image) + "/* HMB_input a */\n/* HMB_output b */\n");
  stretch("in/net_split_0.dvi", largest_image);
  stretch("in/net_split_1.dvi", largest_image);
  expect_run(run_tool({"-d", "in", "-f", "/dev/null"}, folder().path()), 0,
             "Save to file /dev/null with file size 4642.\n\n");
}

std::string table_line(const std::string& id, const std::string& size, const std::string& name) {
  return "dvi_id: " + id + "\t dvi_img_vaddr: 0\t dvi_img_size: " + size +
         "\t dvi_dag_vaddr: 0\t input_num: 0\t output_num: 0\t dvi_pkg_size: 0\t dvi_ppv: 0\t "
         "vproc_id: " +
         id + "\t dag_name: " + name + "\n";
}

TEST_F(HugeFiles, ADviBeyondFourGigabytesIsReadFromItsRightPlace) {
  // The first two images cannot be created, so they are skipped.
  folder().write(
      "net.bin",
      package_header(3) + dvi_record({.img_size = largest_image, .dag_name = "a/b"}) +
          dvi_record({.dvi_id = 1, .vproc_id = 1, .img_size = largest_image, .dag_name = "c/d"}) +
          dvi_record({.dvi_id = 2, .vproc_id = 2, .img_size = 5, .dag_name = "net"}));
  stretch("net.bin", 12 + 3 * 156 + 2 * std::uint64_t{largest_image});
  std::ofstream(folder().path("net.bin"), std::ios::binary | std::ios::app)
      << "image" << vproc_record(0, 0, 0) << vproc_record(0, 0, 0) << vproc_record(0, 1, 132)
      << smb_record("lut", 9);
  const run_result run = run_tool({"-f", "net.bin", "-v", "-c"}, folder().path());
  expect_run(run, 1,
             "version 2.1.6 ( HASH b3b3814 ) dvi_num: 3\n\n" +
                 table_line("0", "2147483647", "a/b") + table_line("1", "2147483647", "c/d") +
                 table_line("2", "5", "net") +
                 "can't open file .//parse/_a/b.h\n"
                 "can't open file .//parse/_c/d.h\n"
                 "\n"
                 "dvi_id: 0 dag_name: a/b input_num: 0 output_num: 0\n"
                 "can't open file .//parse/_a/b.h\n"
                 "can't open file .//parse/_a/b.h\n"
                 "\n"
                 "can't open file .//parse/a/b.dvi\n"
                 "dvi_id: 1 dag_name: c/d input_num: 0 output_num: 0\n"
                 "can't open file .//parse/_c/d.h\n"
                 "can't open file .//parse/_c/d.h\n"
                 "\n"
                 "can't open file .//parse/c/d.dvi\n"
                 "dvi_id: 2 dag_name: net input_num: 0 output_num: 0\n"
                 "\n"
                 "vproc_id: 0 dag_name: a/b variable_num: 0 smb_num: 0\n"
                 "\n"
                 "can't open file .//parse/_a/b.h\n"
                 "\n"
                 "can't open file .//parse/_a/b.h\n"
                 "\n"
                 "vproc_id: 1 dag_name: c/d variable_num: 0 smb_num: 0\n"
                 "\n"
                 "can't open file .//parse/_c/d.h\n"
                 "\n"
                 "can't open file .//parse/_c/d.h\n"
                 "\n"
                 "vproc_id: 2 dag_name: net variable_num: 0 smb_num: 1\n"
                 "\n"
                 "\n"
                 "smb_id: 0\t vbase_byte_offset: 9\t smb_name: lut\n"
                 "\n"
                 "error: fail to save parsed .dvi files to folder .//parse\n"
                 "\n");
  EXPECT_LT(run.peak_kib, 512 * 1024);
  EXPECT_EQ(folder().read("parse/net.dvi"), "image");
}

TEST_F(HugeFiles, AShortImageBeyondTheReadBuffersIsNotCopiedFirst) {
  put_dag(folder(), "net", dag_lines("net", largest_image));
  stretch("in/net.dvi", largest_image - 1);
  expect_run(run_tool({"-d", "in", "-f", "net.bin"}, folder().path()), 255,
             "warning: fail to find HMB input info in in/_net.h\n"
             "warning: fail to find HMB output info in in/_net.h\n"
             "error: fail to read 2147483647 bytes from in/net.dvi\n");
  EXPECT_EQ(folder().read("net.bin").size(), 168U);
}

}  // namespace
}  // namespace morvane::test

// Images and packages of more than 2 and 4 GiB. Their files are sparse and in memory, where holes
// are read fast, and no image is written.
#include <filesystem>
#include <fstream>
#include <memory>

#include "end_to_end/inspection_output.h"
#include "end_to_end/tool_test.h"

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

std::string lost_header(const std::string& dag_name) {
  return "can't open file .//parse/_" + dag_name + ".h\n";
}

TEST_F(HugeFiles, ADviBeyondFourGigabytesIsReadFromItsRightPlace) {
  // The first two images cannot be created, so they are skipped.
  const dvi_fields first = {.img_size = largest_image, .dag_name = "a/b"};
  const dvi_fields second = {
      .dvi_id = 1, .vproc_id = 1, .img_size = largest_image, .dag_name = "c/d"};
  const dvi_fields third = {.dvi_id = 2, .vproc_id = 2, .img_size = 5, .dag_name = "net"};
  folder().write("net.bin",
                 package_header(3) + dvi_record(first) + dvi_record(second) + dvi_record(third));
  stretch("net.bin", 12 + 3 * 156 + 2 * std::uint64_t{largest_image});
  std::ofstream(folder().path("net.bin"), std::ios::binary | std::ios::app)
      << "image" << no_vproc << no_vproc << vproc_record(0, 1, 132) << smb_record("lut", 9);
  const run_result run = run_tool({"-f", "net.bin", "-v", "-c"}, folder().path());
  expect_run(run, 1,
             first_line(3) + "\n" + table_line(first) + table_line(second) + table_line(third) +
                 lost_header("a/b") + lost_header("c/d") + "\n" + heading(first) +
                 lost_header("a/b") + lost_header("a/b") + "\ncan't open file .//parse/a/b.dvi\n" +
                 heading(second) + lost_header("c/d") + lost_header("c/d") +
                 "\ncan't open file .//parse/c/d.dvi\n" + heading(third) +
                 "\n"
                 "vproc_id: 0 dag_name: a/b variable_num: 0 smb_num: 0\n\n" +
                 lost_header("a/b") + "\n" + lost_header("a/b") +
                 "\n"
                 "vproc_id: 1 dag_name: c/d variable_num: 0 smb_num: 0\n\n" +
                 lost_header("c/d") + "\n" + lost_header("c/d") +
                 "\n"
                 "vproc_id: 2 dag_name: net variable_num: 0 smb_num: 1\n"
                 "\n"
                 "\n"
                 "smb_id: 0\t vbase_byte_offset: 9\t smb_name: lut\n"
                 "\n" +
                 failed_report_end());
  EXPECT_LT(run.peak_kib, 512 * 1024);
  EXPECT_EQ(folder().read("parse/net.dvi"), "image");
}

TEST_F(HugeFiles, AShortImageBeyondTheReadBuffersIsNotCopiedFirst) {
  put_dag(folder(), "net", dag_lines("net", largest_image));
  stretch("in/net.dvi", largest_image - 1);
  expect_run(run_tool(pack, folder().path()), 255,
             no_ports + "error: fail to read 2147483647 bytes from in/net.dvi\n");
  EXPECT_EQ(folder().read("net.bin").size(), 168U);
}

}  // namespace
}  // namespace morvane::test

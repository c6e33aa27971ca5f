// A large image, which the system copies from file to file. Where it cannot do that, or stops
// early, the program reads and writes the rest: nobody sees a difference.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "faults/faulty_run.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

class LargeImage : public testing::Test {
 protected:
  void SetUp() override {
    if (const std::string reason = no_faults_because(tool_path()); !reason.empty()) {
      GTEST_SKIP() << reason;
    }
    for (std::size_t i = 0; i < image.size(); ++i) {
      image[i] = static_cast<char>(i % 251);
    }
    folder.write("in/net.dvi", image);
    folder.write("in/net.h", "#define net_DAG_NAME net\n#define net_image_size " +
                                 std::to_string(image.size()) + "\n");
    ASSERT_EQ(run_tool({"-d", "in", "-f", "net.bin"}, folder.path()).status, 0);
    package = folder.read("net.bin");
    ASSERT_EQ(package.size(), 168 + image.size());
  }

  /// Checks that a command leaves the same bytes in a file, whatever happens to the copying.
  void expect_same_bytes(const std::vector<std::string>& command, int status,
                         const std::string& file, const std::string& content) const {
    const auto calls = calls_of(command, folder.path());
    std::vector<fault> faults = faults_of({{"copy", "short"}, {"copy", "none"}}, calls);
    faults.push_back({.kind = "copy", .number = 1, .from_then_on = true, .effect = "none"});
    const std::vector<call_error> errors{{"copy", EINVAL}, {"copy", ENOSYS}, {"copy", EXDEV},
                                         {"copy", EPERM},  {"copy", EINTR},  {"copy", EIO},
                                         {"copy", ENOSPC}};
    std::ranges::move(faults_of(errors, calls), std::back_inserter(faults));
    EXPECT_GE(faults.size(), 17U);
    for (const fault& fault : faults) {
      SCOPED_TRACE(fault);
      std::filesystem::remove(folder.path(file));
      EXPECT_EQ(run_with(fault, command, folder.path()).status, status);
      EXPECT_TRUE(folder.read(file) == content);
    }
  }

  std::string image = std::string((1U << 20U) + 4321, '\0');
  std::string package;
  scratch_folder folder;
};

TEST_F(LargeImage, IsPacked) {
  expect_same_bytes(tool_words({"-d", "in", "-f", "again.bin"}), 0, "again.bin", package);
}

TEST_F(LargeImage, IsExtractedByAnInspection) {
  expect_same_bytes(tool_words({"-f", "net.bin", "-v"}), 1, "parse/net.dvi", image);
}

TEST_F(LargeImage, IsExtractedByMorvane) {
  if (const std::string reason = no_faults_because(morvane_path()); !reason.empty()) {
    GTEST_SKIP() << reason;
  }
  expect_same_bytes(morvane_words({"extract", "net.bin"}), 0, "net.dvi", image);
}

TEST_F(LargeImage, IsSynchronisedInPartsThatASignalCanEnd) {
  if (!std::filesystem::exists(morvane_path())) {
    GTEST_SKIP() << "morvane is not built";
  }
  constexpr std::size_t size = std::size_t{40} << 20U;
  std::filesystem::resize_file(folder.path("in/net.dvi"), size);
  folder.write("in/net.h",
               "#define net_DAG_NAME net\n#define net_image_size " + std::to_string(size) + "\n");
  folder.write("out.bin", "older");
  const auto command = morvane_words({"pack", "in", "-o", "out.bin"});
  for (const std::string& effect : {error_effect(EIO), std::string("signal=15")}) {
    for (const unsigned number : {1U, 2U, 3U}) {
      const run_result run =
          run_with({.kind = "sync", .number = number, .effect = effect}, command, folder.path());
      EXPECT_EQ(run.status, effect == "signal=15" ? 128 + 15 : 2);
      EXPECT_TRUE(folder.read("out.bin") == "older");
    }
  }
  // Two parts of 16 MiB, the rest, and the folder.
  EXPECT_EQ(calls_of(command, folder.path())["sync"], 4U);
}

}  // namespace
}  // namespace morvane::test

// The progress line.
#include "cli/output/progress.h"

#include <gtest/gtest.h>

namespace morvane::test {
namespace {

using cli::begin_progress;
using cli::progress_text;

TEST(Progress, TellsBytesAndRate) {
  EXPECT_EQ(progress_text({.name = "net.bin", .total = std::uint64_t{1} << 30U},
                          std::uint64_t{512} << 20U, 2.0),
            "net.bin: 512 of 1024 MiB, 256 MiB/s");
}

TEST(Progress, TellsDvis) {
  EXPECT_EQ(progress_text({.name = "in", .total = 10, .unit = cli::progress_unit::dvis}, 3, 2.0),
            "in: 3 of 10 DVIs");
}

TEST(Progress, IsNotShownWhereStandardErrorIsNoTerminal) {
  testing::internal::CaptureStderr();
  cli::progress_line progress = begin_progress("net.bin", 100, false);
  progress.begin -= std::chrono::hours(1);
  progress.shown -= std::chrono::hours(1);
  show_progress(progress, 50);
  hide_progress(progress);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(Progress, IsShownAfterASecondAndTakenAway) {
  testing::internal::CaptureStderr();
  cli::progress_line progress{.name = "net.bin", .total = std::uint64_t{4} << 20U};
  progress.begin = std::chrono::steady_clock::now();
  progress.shown = progress.begin;
  show_progress(progress, std::uint64_t{1} << 20U);
  EXPECT_FALSE(progress.is_visible);
  progress.begin -= std::chrono::hours(1);
  progress.shown -= std::chrono::hours(1);
  show_progress(progress, std::uint64_t{2} << 20U);
  show_progress(progress, std::uint64_t{3} << 20U);
  EXPECT_TRUE(progress.is_visible);
  hide_progress(progress);
  hide_progress(progress);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "\r\x1B[Kmorvane: net.bin: 2 of 4 MiB, 0 MiB/s\r\x1B[K");
}

}  // namespace
}  // namespace morvane::test

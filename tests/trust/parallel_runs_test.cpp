// Runs that share their output end as every run does, whatever is left of the output.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "harness/packages.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"
#include "harness/test_size.h"

namespace morvane::test {
namespace {

/// Runs two tools with the same arguments at once. Returns their statuses.
std::pair<int, int> run_twice_at_once(const std::vector<std::string>& arguments,
                                      const std::string& folder) {
  const int output = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  const pid_t one = start_program(tool_words(arguments), folder, output);
  const pid_t other = start_program(tool_words(arguments), folder, output);
  ::close(output);
  return {wait_for(one), wait_for(other)};
}

TEST(ParallelRuns, TwoInspectionsIntoOneParseFolderEnd) {
  const scratch_folder folder;
  folder.write("a.bin", sample_package());
  const unsigned pairs = cases_to_run(50, 10);
  for (unsigned i = 0; i < pairs; ++i) {
    EXPECT_EQ(run_twice_at_once({"-f", "a.bin", "-v", "-c"}, folder.path()), std::pair(1, 1));
  }
  // A later run alone makes everything anew.
  const run_result run = run_tool({"-f", "a.bin", "-v", "-c"}, folder.path());
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output.find("can't open file"), std::string::npos);
}

TEST(ParallelRuns, TwoPackRunsIntoOnePackageGiveThePackage) {
  const scratch_folder folder;
  copy_sample(folder);
  const std::vector<std::string> pack = {"-d", "in", "-f", "a.bin", "-c"};
  EXPECT_EQ(run_tool(pack, folder.path()).status, 0);
  const std::string package = folder.read("a.bin");
  const unsigned pairs = cases_to_run(50, 10);
  for (unsigned i = 0; i < pairs; ++i) {
    EXPECT_EQ(run_twice_at_once(pack, folder.path()), std::pair(0, 0));
    EXPECT_TRUE(folder.read("a.bin") == package);
  }
}

}  // namespace
}  // namespace morvane::test

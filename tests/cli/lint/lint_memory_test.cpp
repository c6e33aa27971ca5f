// What morvane lint keeps of a DVI. Measured is the greatest resident memory of the program.
#include "cli/outcome.h"
#include "harness/sanitizer.h"
#include "harness/test_size.h"

namespace morvane::test {
namespace {

/// A folder of DAGs, each with an input from the DAG before it and an output.
class LintMemory : public morvane_test {
 protected:
  void put_dags(int count) const {
    for (int i = 0; i < count; ++i) {
      const std::string dag = "net_" + std::to_string(i);
      const std::string stem = "in/net_split_" + std::to_string(i);
      const std::string input = "stage_" + std::to_string(i);
      const std::string output = "stage_" + std::to_string(i + 1);
      folder.write(stem + ".dvi", "image");
      folder.write(stem + ".h", "#define " + dag + "_DAG_NAME \"" + dag + "\"\n#define " + dag +
                                    "_image_size 5\n/* HMB_input " + input + " */\n#define " + dag +
                                    "_" + input + "_W 3\n/* HMB_output " + output +
                                    " */\n#define " + dag + "_" + output + "_W 3\n");
    }
  }

  [[nodiscard]] long peak_kib() const {
    const run_result run = morvane({"lint", "in"});
    expect_outcome(run, 0, "", "morvane: in: 0 errors, 0 warnings\n");
    return run.peak_kib;
  }
};

TEST_F(LintMemory, IsAtMost2KiBForEachDag) {
  if (under_sanitizer || few_cases()) {
    GTEST_SKIP() << "a sanitizer, a run prefix and counted lines need memory and time of their own";
  }
  put_dags(3000);
  const long few = peak_kib();
  put_dags(11000);
  const long many = peak_kib();
  const double bytes = static_cast<double>(many - few) * 1024 / 8000;
  std::printf("%.0f bytes for each DAG\n", bytes);
  EXPECT_LE(bytes, 2048);
}

}  // namespace
}  // namespace morvane::test

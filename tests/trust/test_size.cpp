#include "trust/test_size.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "harness/run_tool.h"

namespace morvane::test {

unsigned cases_to_run(unsigned all, unsigned behind_prefix) {
  const bool slow = !run_prefix().empty();
  const unsigned cases = slow ? behind_prefix : all;
  std::printf("%u cases%s\n", cases, slow ? ", fewer with the run prefix" : "");
  return cases;
}

std::uint64_t test_seed() {
  constexpr std::uint64_t usual_seed = 20240229;
  const char* chosen = std::getenv("MORVANE_TEST_SEED");
  const std::uint64_t seed = chosen != nullptr ? std::strtoull(chosen, nullptr, 10) : usual_seed;
  std::printf("MORVANE_TEST_SEED=%llu\n", static_cast<unsigned long long>(seed));
  return seed;
}

std::filesystem::path fast_folder() {
  constexpr const char* in_memory = "/dev/shm";
  return ::access(in_memory, W_OK | X_OK) == 0 ? in_memory : std::filesystem::temp_directory_path();
}

}  // namespace morvane::test

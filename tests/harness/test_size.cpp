#include "harness/test_size.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "harness/run_tool.h"

namespace morvane::test {

bool few_cases() {
  return !run_prefix().empty() || std::getenv("MORVANE_FEW_CASES") != nullptr;
}

unsigned cases_to_run(unsigned all, unsigned few) {
  const unsigned cases = few_cases() ? few : all;
  std::printf("%u cases of %u\n", cases, all);
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

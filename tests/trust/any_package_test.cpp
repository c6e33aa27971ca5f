// With any bytes as a package, the inspection returns, or a negative or absurd count aborts it.

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <new>
#include <thread>
#include <vector>

#include "harness/packages.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"
#include "harness/silence.h"
#include "harness/test_size.h"
#include "inspect/inspect_package.h"
#include "trust/claimed_output.h"
#include "trust/round_trip.h"

namespace morvane::test {
namespace {

// Every byte is set to 0x00 and 0xFF, and each of its bits is flipped.
constexpr std::size_t damages_per_byte = 2 + 8;

std::size_t damages(std::string_view package) {
  return package.size() + 1 + package.size() * damages_per_byte;
}

/// The damages are numbered: every truncation, then every damage of the first byte, and so on.
std::string damaged(std::string_view package, std::size_t damage) {
  if (damage <= package.size()) {
    return std::string(package.substr(0, damage));
  }
  damage -= package.size() + 1;
  std::string result(package);
  char& byte = result[damage / damages_per_byte];
  const std::size_t kind = damage % damages_per_byte;
  const auto value = static_cast<unsigned char>(byte);
  byte = static_cast<char>(kind == 0 ? 0x00 : kind == 1 ? 0xFF : value ^ 1U << (kind - 2));
  return result;
}

/// What a child reports to its parent.
struct progress {
  std::size_t damage = 0;
  unsigned inspected = 0;
  unsigned refused = 0;
  unsigned left_out = 0;
};

/// Whether the inspection ends as the package's counts demand.
bool ends_as_claimed(const scratch_folder& scratch, std::string_view package, bool refused) {
  std::ofstream(scratch.path("a.bin"), std::ios::binary) << package;
  try {
    return inspect_package(scratch.path("a.bin"), scratch.path(), true) == 0 && !refused;
  } catch (const std::bad_alloc&) {
    return refused;
  }
}

struct sweep {
  std::string package;
  std::size_t step;              // 1 for every damage
  std::uint64_t largest_output;  // a damage with a larger output than this is left out
};

bool run_damages(const sweep& all, std::size_t first, std::size_t step, progress& shared) {
  const scratch_folder scratch(fast_folder());
  for (std::size_t damage = first; damage < damages(all.package); damage += step) {
    shared.damage = damage;
    const std::string package = damaged(all.package, damage);
    const claim claimed = claimed_output(package, true);
    if (claimed.bytes > all.largest_output) {
      ++shared.left_out;
      continue;
    }
    if (!ends_as_claimed(scratch, package, claimed.refused)) {
      return false;
    }
    ++(claimed.refused ? shared.refused : shared.inspected);
  }
  return true;
}

/// Inspects the damaged packages in child processes, so that the damage behind a crash is known.
void inspect_damaged(const sweep& all) {
  const unsigned children = std::max(1U, std::thread::hardware_concurrency());
  const std::size_t shared_size = children * sizeof(progress);
  void* memory =
      ::mmap(nullptr, shared_size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(memory, MAP_FAILED);
  auto* shared = new (memory) progress[children];
  std::vector<pid_t> ids;
  std::fflush(stdout);
  for (unsigned i = 0; i < children; ++i) {
    ids.push_back(::fork());
    if (ids.back() == 0) {
      const silence silent;
      std::exit(run_damages(all, i * all.step, children * all.step, shared[i]) ? 0 : 1);
    }
  }
  progress sum;
  for (unsigned i = 0; i < children; ++i) {
    int status = -1;
    ASSERT_EQ(::waitpid(ids[i], &status, 0), ids[i]);
    EXPECT_EQ(status, 0) << "at damage " << shared[i].damage;
    sum.inspected += shared[i].inspected;
    sum.refused += shared[i].refused;
    sum.left_out += shared[i].left_out;
  }
  std::printf("%u inspected to the end, %u stopped by their counts, %u left out for their size\n",
              sum.inspected, sum.refused, sum.left_out);
  EXPECT_EQ(sum.inspected + sum.refused + sum.left_out,
            (damages(all.package) + all.step - 1) / all.step);
  EXPECT_GT(sum.inspected, sum.left_out);
  ::munmap(memory, shared_size);
}

std::string package_of_examples() {
  const silence silent;
  std::map<std::string, std::string> files;
  for (const auto& entry :
       std::filesystem::directory_iterator(source_folder() + "/examples/wake_word")) {
    std::ifstream file(entry.path(), std::ios::binary);
    files[entry.path().filename()] = {std::istreambuf_iterator<char>(file), {}};
  }
  return pack_inspect_pack(scratch_folder(), files, true).first;
}

/// The step from one tried damage to the next; 1 if MORVANE_TEST_EVERY_DAMAGE is set.
std::size_t damage_step(std::size_t usual, std::size_t few) {
  if (std::getenv("MORVANE_TEST_EVERY_DAMAGE") != nullptr) {
    return 1;
  }
  const std::size_t step = few_cases() ? few : usual;
  if (step > 1) {
    std::printf("one damage of %zu; MORVANE_TEST_EVERY_DAMAGE in the environment: all\n", step);
  }
  return step;
}

std::uint64_t largest_output() {
  return std::uint64_t{few_cases() ? 2U : 64U} << 20;
}

TEST(AnyPackage, EveryDamageOfTheSamplePackageIsInspected) {
  inspect_damaged({.package = sample_package(),
                   .step = damage_step(1, 11),
                   .largest_output = largest_output()});
}

TEST(AnyPackage, DamagesOfThePackageOfTheExamplesAreInspected) {
  const std::string package = package_of_examples();
  ASSERT_GT(package.size(), 8192U);
  inspect_damaged(
      {.package = package, .step = damage_step(31, 997), .largest_output = largest_output()});
}

}  // namespace
}  // namespace morvane::test

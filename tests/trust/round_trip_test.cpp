// Packing, inspecting and packing again gives the same package, if DAG names end in their index.

#include "trust/round_trip.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

#include "format/records.h"
#include "harness/silence.h"
#include "harness/test_size.h"
#include "trust/generated_folder.h"

namespace morvane::test {
namespace {

std::string random_bytes(std::mt19937_64& random, std::size_t count) {
  std::string bytes;
  while (bytes.size() < count) {
    bytes += static_cast<char>(random());
  }
  return bytes;
}

TEST(RoundTrip, GivesTheSamePackageForGeneratedFolders) {
  std::mt19937_64 random(test_seed());
  const unsigned folders = cases_to_run(2400, 240);
  const scratch_folder scratch(fast_folder());
  std::set<std::string> packages;
  std::size_t ports = 0;
  for (unsigned i = 0; i < folders; ++i) {
    const std::string bytes = random_bytes(random, 8000);
    choices source{.bytes = bytes};
    const auto files = generate_folder(source);
    round_trip trip;
    {
      const silence silent;
      trip = pack_inspect_pack(scratch, files, i % 2 == 0);
    }
    ASSERT_EQ(trip.first_status, 0) << "folder " << i;
    ASSERT_EQ(trip.second_status, 0) << "folder " << i;
    ASSERT_TRUE(trip.first == trip.second) << "folder " << i;
    packages.insert(trip.first);
    ports += trip.first.size() / sizeof(port_desc);
  }
  std::printf("about %zu ports in %zu different packages\n", ports, packages.size());
  EXPECT_GT(packages.size(), folders * 9 / 10) << "the folders are too much alike";
  EXPECT_GT(ports, folders) << "the folders have hardly any ports";
}

}  // namespace
}  // namespace morvane::test

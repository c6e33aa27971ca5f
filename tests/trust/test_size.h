// The number of cases in the tests of the promises, and the seed of their random numbers.
#pragma once

#include <cstdint>
#include <filesystem>

namespace morvane::test {

/// The number of cases to run: all, or a part of them with a slow emulator or checker. Prints the
/// number.
unsigned cases_to_run(unsigned all, unsigned behind_prefix);

/// The seed of random numbers: MORVANE_TEST_SEED from the environment, or a constant. Prints it.
std::uint64_t test_seed();

/// A folder in memory, or, if there is none, the folder for temporary files.
std::filesystem::path fast_folder();

}  // namespace morvane::test

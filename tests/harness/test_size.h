// The number of cases in the tests of the promises, and the seed of their random numbers.
#pragma once

#include <cstdint>
#include <filesystem>

namespace morvane::test {

/// Whether fewer cases are enough: behind a slow emulator or checker, and where MORVANE_FEW_CASES
/// is set in the environment.
bool few_cases();

/// The number of cases to run: all or few. Prints the number.
unsigned cases_to_run(unsigned all, unsigned few);

/// The seed of random numbers: MORVANE_TEST_SEED from the environment, or a constant. Prints it.
std::uint64_t test_seed();

/// A folder in memory, or, if there is none, the folder for temporary files.
std::filesystem::path fast_folder();

}  // namespace morvane::test

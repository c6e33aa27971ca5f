// How much the tests of the promises do, and what their random numbers begin with.
#pragma once

#include <cstdint>
#include <filesystem>

namespace morvane::test {

/// The number of cases to run: all, or, behind an emulator or a checker that makes each slow, a
/// part of them. Prints which it is.
unsigned cases_to_run(unsigned all, unsigned behind_prefix);

/// What random numbers begin with: MORVANE_TEST_SEED from the environment, or always the same.
/// Prints it.
std::uint64_t test_seed();

/// A folder in memory where there is one, otherwise that for temporary files.
std::filesystem::path fast_folder();

}  // namespace morvane::test

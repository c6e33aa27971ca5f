// The input is a package. It is inspected with its vproc records.

#include <filesystem>
#include <new>

#include "fuzz/fuzz_target.h"
#include "harness/scratch_folder.h"
#include "harness/silence.h"
#include "inspect/inspect_package.h"
#include "trust/claimed_output.h"

namespace morvane::test {
namespace {

// A package that promises a larger report than this is skipped: the report would be correct but
// long.
constexpr std::uint64_t largest_output = 256 * 1024;

std::size_t entries(const std::string& folder) {
  std::size_t count = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder)) {
    ++count;
  }
  return count;
}

}  // namespace
}  // namespace morvane::test

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane;
  static const test::silence silent;
  static const test::scratch_folder scratch;
  const std::string_view package = test::text_of_input(data, size);
  const test::claim claim = test::claimed_output(package, true);
  if (claim.bytes > test::largest_output) {
    return 0;
  }
  scratch.write("a.bin", package);
  scratch.make_folder("out");
  bool refused = false;
  try {
    test::require(inspect_package(scratch.path("a.bin"), scratch.path("out"), true) == 0,
                  "a package that can be opened is inspected");
  } catch (const std::bad_alloc&) {
    refused = true;
  }
  test::require(refused == claim.refused, "a negative or absurd count stops it, and nothing else");
  test::require(test::entries(scratch.path()) == 2 && test::entries(scratch.path("out")) == 1,
                "nothing is made outside the parse folder");
  test::require(scratch.read("a.bin") == package, "the package stays as it is");
  std::filesystem::remove_all(scratch.path("out/parse"));
  return 0;
}

// The input chooses a compiler output folder. The folder is packed, the package is inspected, and
// the parse folder is packed again.

#include "fuzz/fuzz_target.h"
#include "harness/silence.h"
#include "trust/generated_folder.h"
#include "trust/round_trip.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane::test;
  static const silence silent;
  static const scratch_folder scratch;
  choices source{.bytes = text_of_input(data, size)};
  const bool vproc = choose(source, 2) == 0;
  const round_trip packages = pack_inspect_pack(scratch, generate_folder(source), vproc);
  require(packages.first_status == 0, "a compiler's output is packed");
  require(packages.second_status == 0, "what an inspection regenerates is packed");
  require(packages.first == packages.second, "the package of what was regenerated is the same");
  return 0;
}

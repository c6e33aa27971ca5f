// Pairing DVIs with their headers, in a folder of 10,000 of each.

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "discovery/input_files.h"
#include "harness/scratch_folder.h"

namespace morvane {

namespace {

constexpr std::int32_t dvi_count = 10000;

void pair_names(benchmark::State& state) {
  const test::scratch_folder folder;
  input_list dvis;
  for (std::int32_t index = 0; index < dvi_count; ++index) {
    const std::string stem = "net_split_" + std::to_string(index);
    folder.write("_" + stem + ".h", "");
    dvis.add({.name = stem + ".dvi", .index = index});
  }
  for (auto _ : state) {
    input_list headers;
    if (pair_header_files(folder.path(), dvis, headers) != dvi_count) {
      state.SkipWithError("headers are missing");
    }
  }
}
BENCHMARK(pair_names)->Name("pair_header_files/10000 names")->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace morvane

// Reading headers: the line scanner, and one port's block.

#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <vector>

#include "headers/line_scanner.h"
#include "headers/port_descriptions.h"

namespace morvane {

namespace {

constexpr std::string_view define_line = "#define\tnet_split_0_data_dbase_byte_offset\t4096";

void cut_a_line(benchmark::State& state) {
  for (auto _ : state) {
    std::array<std::string_view, 8> tokens;
    benchmark::DoNotOptimize(split_line(define_line, macro_delimiters, tokens));
    benchmark::DoNotOptimize(tokens);
  }
}
BENCHMARK(cut_a_line)->Name("split_line");

void find_value(benchmark::State& state, std::string_view line, std::string_view key) {
  for (auto _ : state) {
    std::string_view value;
    benchmark::DoNotOptimize(find_macro_value(line, key, value, macro_delimiters));
    benchmark::DoNotOptimize(value);
  }
}
BENCHMARK_CAPTURE(find_value, hit, define_line, "data_dbase_byte_offset")
    ->Name("find_macro_value/hit");
BENCHMARK_CAPTURE(find_value, miss, define_line, "HMB_input")->Name("find_macro_value/miss");

/// The longest line there may be, with the key in its last words.
void find_value_on_long_line(benchmark::State& state) {
  const std::string end = " net_split_0_W 640";
  find_value(state, std::string(1023 - end.size(), 'x') + end, "net_split_0_W");
}
BENCHMARK(find_value_on_long_line)->Name("find_macro_value/long line");

constexpr std::string_view port_block =
    "/* net_split_0 HMB_input data */\n"
    "#define\tnet_split_0_data_qubrix_demangled_name\t\"net/input/data\"\n"
    "#define\tnet_split_0_data_is_bitvector\t0\n"
    "#define\tnet_split_0_data_dbase_byte_offset\t4096\n"
    "#define\tnet_split_0_data_drotate_bit_offset\t0\n"
    "#define\tnet_split_0_data_hflip_bit_offset\t255984\n"
    "#define\tnet_split_0_data_vflip_bit_offset\t0\n"
    "#define\tnet_split_0_data_dflip_bit_offset\t0\n"
    "#define\tnet_split_0_data_pflip_bit_offset\t0\n"
    "#define\tnet_split_0_data_W\t640\n"
    "#define\tnet_split_0_data_H\t480\n"
    "#define\tnet_split_0_data_D\t3\n"
    "#define\tnet_split_0_data_P\t1\n"
    "#define\tnet_split_0_data_dpitch_num_bytes\t307200\n"
    "#define\tnet_split_0_data_dram_format\t2\n"
    "#define\tnet_split_0_data_dram_size_num_bytes\t921600\n"
    "#define\tnet_split_0_data_sign\t1\n"
    "#define\tnet_split_0_data_datasize\t8\n"
    "#define\tnet_split_0_data_expoffset\t-4\n"
    "#define\tnet_split_0_data_expbits\t0\n"
    "#define\tnet_split_0_data_drotate\t0\n"
    "#define\tnet_split_0_data_hflip\t1\n"
    "#define\tnet_split_0_data_vflip\t0\n"
    "#define\tnet_split_0_data_dflip\t0\n"
    "#define\tnet_split_0_data_pflip\t0\n";

void parse_port_block(benchmark::State& state) {
  for (auto _ : state) {
    std::vector<port_desc> ports;
    if (parse_port_descriptions(ports, port_block, input_ports) != 0 || ports.size() != 1 ||
        ports[0].W != 640) {
      state.SkipWithError("the port is not read");
    }
  }
}
BENCHMARK(parse_port_block)->Name("parse_port_descriptions/one port");

}  // namespace

}  // namespace morvane

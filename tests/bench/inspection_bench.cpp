// What an inspection writes: the report's lines and the blocks of the regenerated headers.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <string_view>
#include <vector>

#include "harness/scratch_folder.h"
#include "inspect/header_writer.h"
#include "inspect/report.h"

namespace morvane {

namespace {

constexpr std::size_t record_count = 100;

template <std::size_t width>
void set_text(char (&field)[width], std::string_view text) {
  store_text(std::as_writable_bytes(std::span(field)), text);
}

port_desc example_port() {
  port_desc port{};
  port.D = 3;
  port.H = 480;
  port.W = 640;
  port.pitch = 307200;
  port.port_size = 921600;
  port.expoffset = -4;
  set_text(port.port_name, "data");
  set_text(port.layer_name, "net/input/data");
  return port;
}

template <class Record>
claimed_list<Record> repeated(const Record& record) {
  return {.count = record_count, .present = std::vector<Record>(record_count, record)};
}

dvi_desc example_dvi() {
  dvi_desc dvi{};
  set_text(dvi.dag_name, "net_split_0");
  return dvi;
}

/// Standard output leads to /dev/null until the end of the scope.
class silence {
 public:
  silence() : kept_(::dup(STDOUT_FILENO)) {
    std::fflush(stdout);
    const int nowhere = ::open("/dev/null", O_WRONLY);
    ::dup2(nowhere, STDOUT_FILENO);
    ::close(nowhere);
  }
  silence(const silence&) = delete;
  silence& operator=(const silence&) = delete;
  ~silence() {
    ::dup2(kept_, STDOUT_FILENO);
    ::close(kept_);
  }

 private:
  int kept_;
};

void print_ports(benchmark::State& state) {
  const auto ports = repeated(example_port());
  const silence quiet;
  for (auto _ : state) {
    print_port_descriptions(ports, input_ports);
  }
}
BENCHMARK(print_ports)->Name("print_port_descriptions/100 lines");

/// Measures a block writer that appends to a header; the header begins anew each time.
template <class Write>
void write_blocks(benchmark::State& state, const Write& write) {
  const test::scratch_folder folder;
  parse_folder output{.path = folder.path(), .handle = open_folder(folder.path())};
  for (auto _ : state) {
    remove_header(output, "net_split_0");
    output.headers.clear();
    write(output);
  }
  if (folder.read("_net_split_0.h").empty()) {
    state.SkipWithError("nothing is written");
  }
}

void write_ports(benchmark::State& state) {
  const auto ports = repeated(example_port());
  const dvi_desc dvi = example_dvi();
  write_blocks(state,
               [&](parse_folder& output) { write_port_blocks(output, dvi, ports, input_ports); });
}
BENCHMARK(write_ports)->Name("write_port_blocks/100 ports");

void write_variables(benchmark::State& state) {
  var_desc variable{.var = {}, .boffset = 16, .bsize = 16};
  set_text(variable.var, "vp_agc_gain");
  const auto variables = repeated(variable);
  const dvi_desc dvi = example_dvi();
  write_blocks(state, [&](parse_folder& output) { write_variable_blocks(output, dvi, variables); });
}
BENCHMARK(write_variables)->Name("write_variable_blocks/100 variables");

void write_smbs(benchmark::State& state) {
  smb_desc smb{.smb_name = {}, .vbase_byte_offset = 1024};
  set_text(smb.smb_name, "window");
  const auto smbs = repeated(smb);
  const dvi_desc dvi = example_dvi();
  write_blocks(state, [&](parse_folder& output) { write_smb_blocks(output, dvi, smbs); });
}
BENCHMARK(write_smbs)->Name("write_smb_blocks/100 SMBs");

void write_dags(benchmark::State& state) {
  claimed_list<dvi_desc> dvis{.count = 1, .present = {example_dvi()}};
  write_blocks(state, [&](parse_folder& output) { write_dag_blocks(output, dvis); });
}
BENCHMARK(write_dags)->Name("write_dag_blocks/1 DAG");

}  // namespace

}  // namespace morvane

#include "cli/wiring/misnamed_ports.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

/// The last output that wrote exactly a range of bytes. The key is its offset and its size.
using last_writers = std::unordered_map<std::uint64_t, std::uint32_t>;

std::uint64_t key_of(const used_range& bytes) {
  return bytes.begin << 32U | (bytes.end - bytes.begin);
}

/// Whether no output has the name of an input with bytes of its own.
bool is_lost(const wiring_run& run, std::uint32_t port) {
  const used_range bytes = port_bytes(run.port(port).flow);
  return run.link(port).outside != no_port && bytes.begin < bytes.end && run.port(port).dvi != 0 &&
         late_producer(run.network, run.links, port) == no_port;
}

/// The ranges of all inputs without an output, still without a writer.
last_writers lost_ranges(const wiring_run& run) {
  last_writers writers;
  for (std::uint32_t port = 0; port < run.network.ports.size(); ++port) {
    if (is_lost(run, port)) {
      writers.emplace(key_of(port_bytes(run.port(port).flow)), no_port);
    }
  }
  return writers;
}

/// What is said of an output that an input without one has the bytes of, or nothing if these may
/// well be free by then.
std::string use_of(const wiring_run& run, std::uint32_t input, std::uint32_t output) {
  const std::uint32_t reader = run.link(output).last_reader;
  if (reader == no_port) {
    return ", which feeds nothing";
  }
  const bool is_needed = run.port(reader).dvi >= run.port(input).dvi || run.is_repeated[output];
  if (!is_needed) {
    return {};
  }
  return ", which feeds " + run.there(reader);
}

/// Tells of an input that reads an output under another name, unless its own name meant something
/// before. The uses are those of outputs before they got such an input.
void connect_lost_input(wiring_run& run, std::uint32_t input, std::uint32_t output,
                        std::unordered_map<std::uint32_t, std::string>& uses) {
  if (output == no_port || run.port(input).flow != run.port(output).flow ||
      run.port(run.link(input).outside).dvi <= run.port(output).dvi) {
    return;
  }
  const auto known = uses.find(output);
  const std::string use = known == uses.end() ? use_of(run, input, output) : known->second;
  if (use.empty()) {
    return;
  }
  uses.emplace(output, use);
  if (!run.is_doubted(input) && !run.is_doubted(output)) {
    add_finding(run, kind_of("renamed-port"), input,
                joined(run.here(input), " has the bytes (offset, size, dims, format) of ",
                       run.there(output), use),
                cause_at(run, output));
  }
  run.links.ports[input].source = output;
  run.links.ports[input].outside = no_port;
  add_reader(run.links, output, input);
}

/// Where the bytes of outputs begin and end, sorted.
struct output_edges {
  std::vector<std::uint64_t> begins{};
  std::vector<std::pair<std::uint32_t, std::uint64_t>> ends{};  // each with its DVI
};

output_edges edges_of(const wiring_run& run) {
  output_edges edges;
  for (const wired_port& port : run.network.ports) {
    const used_range bytes = port_bytes(port.flow);
    if (port.kind == object_kind::output && bytes.begin < bytes.end) {
      edges.begins.push_back(bytes.begin);
      edges.ends.emplace_back(port.dvi, bytes.end);
    }
  }
  std::ranges::sort(edges.begins);
  std::ranges::sort(edges.ends);
  return edges;
}

/// Whether the bytes of an input lie behind an output of its DVI and before another output, with
/// less than the usual alignment between them: where an output of the DVI has its place.
bool is_among_outputs(const wiring_run& run, std::uint32_t input, const output_edges& edges) {
  constexpr std::uint64_t alignment = 64;
  const used_range bytes = port_bytes(run.port(input).flow);
  const auto before =
      std::ranges::upper_bound(edges.ends, std::pair(run.port(input).dvi, bytes.begin));
  const auto behind = std::ranges::lower_bound(edges.begins, bytes.end);
  return bytes.begin < bytes.end && before != edges.ends.begin() &&
         std::prev(before)->first == run.port(input).dvi &&
         bytes.begin - std::prev(before)->second < alignment && behind != edges.begins.end() &&
         *behind - bytes.end < alignment;
}

/// The inputs that bring something from outside to several DVIs, and are the first of these.
std::vector<std::uint32_t> shared_inputs(const wiring_run& run) {
  std::vector<std::uint32_t> shared;
  for (std::uint32_t port = 0; port < run.network.ports.size(); ++port) {
    if (is_shared_input(run, port)) {
      shared.push_back(port);
    }
  }
  return shared;
}

/// How many inputs and outputs DVIs have.
struct port_counts {
  std::vector<std::uint32_t> inputs{};
  std::vector<std::uint32_t> outputs{};
};

port_counts count_ports(const wiring_run& run) {
  const std::size_t dvis = run.is_displaced.size();
  port_counts counts{.inputs = std::vector<std::uint32_t>(dvis),
                     .outputs = std::vector<std::uint32_t>(dvis)};
  for (const wired_port& port : run.network.ports) {
    ++(port.kind == object_kind::input ? counts.inputs : counts.outputs)[port.dvi];
  }
  return counts;
}

/// Of the shared inputs of DVIs that have other inputs too, but no output, the last one of each. A
/// DVI that reads them later must have one.
std::vector<std::uint32_t> inputs_of_sinks(const wiring_run& run,
                                           const std::vector<std::uint32_t>& shared) {
  const port_counts counts = count_ports(run);
  std::vector<std::uint32_t> inputs;
  for (const std::uint32_t input : shared) {
    const std::uint32_t dvi = run.port(input).dvi;
    const std::uint32_t reader = run.port(run.link(input).last_reader).dvi;
    if (counts.outputs[dvi] != 0 || counts.inputs[dvi] < 2 || counts.outputs[reader] == 0) {
      continue;
    }
    if (!inputs.empty() && run.port(inputs.back()).dvi == dvi) {
      inputs.pop_back();
    }
    inputs.push_back(input);
  }
  return inputs;
}

}  // namespace

void find_renamed_ports(wiring_run& run) {
  if (!run.network.is_whole) {
    return;
  }
  last_writers writers = lost_ranges(run);
  std::unordered_map<std::uint32_t, std::string> uses;
  for (std::uint32_t port = 0; port < run.network.ports.size() && !writers.empty(); ++port) {
    const bool is_output = run.port(port).kind == object_kind::output;
    if (!is_output && !is_lost(run, port)) {
      continue;
    }
    const auto writer = writers.find(key_of(port_bytes(run.port(port).flow)));
    if (writer == writers.end()) {
      continue;
    }
    if (is_output) {
      writer->second = port;
    } else {
      connect_lost_input(run, port, writer->second, uses);
    }
  }
}

bool is_shared_input(const wiring_run& run, std::uint32_t port) {
  const port_link& link = run.link(port);
  return run.network.is_whole && link.outside == port && !run.port(port).name.empty() &&
         run.port(link.last_reader).dvi > run.port(port).dvi &&
         late_producer(run.network, run.links, port) == no_port;
}

void tell_input_for_output(wiring_run& run, std::uint32_t input, std::string_view reason) {
  run.is_told[input] = true;
  add_finding(run, kind_of("input-for-output"), input,
              joined(run.here(input), " has the name of ", run.there(run.link(input).last_reader),
                     ", and no DVI has such an output, but ", reason),
              {.number = input});
}

void find_inputs_for_outputs(wiring_run& run) {
  const std::vector<std::uint32_t> shared = shared_inputs(run);
  if (shared.empty()) {
    return;
  }
  for (const std::uint32_t input : inputs_of_sinks(run, shared)) {
    tell_input_for_output(run, input, "its DVI has no output at all");
  }
  const output_edges edges = edges_of(run);
  for (const std::uint32_t input : shared) {
    if (!run.is_told[input] && is_among_outputs(run, input, edges)) {
      tell_input_for_output(run, input, "its bytes lie among those of the outputs of its DVI");
    }
  }
}

}  // namespace morvane::cli

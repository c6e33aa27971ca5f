#include "cli/wiring/wiring_rules.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "cli/output/printable_text.h"
#include "cli/wiring/image_overlaps.h"
#include "cli/wiring/misnamed_ports.h"
#include "cli/wiring/overwritten_bytes.h"
#include "cli/wiring/wiring_run.h"

namespace morvane::cli {

namespace {

/// Inputs that come before the DVI that writes their data. What is joined by such inputs is one
/// cause, as one DVI in a wrong place misses its inputs and comes too late for its outputs.
void find_late_producers(wiring_run& run) {
  std::vector<std::pair<std::uint32_t, std::uint32_t>> late;
  disjoint_sets together(run.is_displaced.size());
  for (std::uint32_t port = 0; port < run.network.ports.size(); ++port) {
    const bool is_input = run.port(port).kind == object_kind::input;
    const std::uint32_t output =
        is_input ? late_producer(run.network, run.links, port) : std::uint32_t{no_port};
    if (output != no_port) {
      late.emplace_back(port, output);
      together.join(run.port(port).dvi, run.port(output).dvi);
      run.is_displaced[run.port(port).dvi] = run.is_displaced[run.port(output).dvi] = true;
    }
  }
  for (const auto& [input, output] : late) {
    if (!run.is_doubted(input) && !run.is_doubted(output)) {
      add_finding(
          run, kind_of("producer-comes-later"), input,
          joined(run.here(input), " gets its data from ", run.there(output), ", which comes later"),
          {cause_kind::order, together.find(run.port(input).dvi)});
    }
  }
}

/// Outputs of one name in several DVIs, of which an input gets the last one before it.
void find_repeated_outputs(wiring_run& run) {
  std::vector<std::uint32_t> repeated;
  for (std::uint32_t port = 0; port < run.network.ports.size(); ++port) {
    const std::uint32_t earlier = run.link(port).source;
    if (run.port(port).kind == object_kind::output && earlier != no_port) {
      run.repeating.join(run.port(earlier).dvi, run.port(port).dvi);
      run.is_repeated[port] = run.is_repeated[earlier] = true;
      repeated.push_back(port);
    }
  }
  for (const std::uint32_t port : repeated) {
    const std::uint32_t earlier = run.link(port).source;
    if (!run.is_doubted(port) && !run.is_doubted(earlier)) {
      add_finding(run, kind_of("repeated-output"), port,
                  joined(run.here(port), " has the name of ", run.there(earlier), " too"),
                  cause_at(run, port));
    }
  }
}

void find_small_port(wiring_run& run, std::uint32_t at) {
  const wired_port& port = run.port(at);
  const std::uint64_t needed = port.is_bitvector ? 0 : needed_bytes(port.flow);
  const used_range bytes = port_bytes(port.flow);
  const std::uint64_t size = bytes.end - bytes.begin;
  if (needed <= size || run.is_doubted(at)) {
    return;
  }
  const port_link& link = run.link(at);
  const bool is_output = port.kind == object_kind::output;
  const std::uint32_t owner = is_output || link.source == no_port ? at : link.source;
  if (run.port(owner).flow == port.flow) {
    add_finding(run, kind_of("port-too-small"), at,
                joined(run.here(at), " has a size of ", count_of(size, "byte"), ", but ",
                       dims_text(port.flow), " need ", needed),
                is_output || link.outside == no_port ? cause_at(run, owner)
                                                     : finding_cause{.number = link.outside});
  }
}

/// Whether the inputs that read an output agree with one another.
std::vector<bool> find_agreement(const wiring_run& run) {
  std::vector<bool> agree(run.network.ports.size(), true);
  for (std::uint32_t port = 0; port < run.network.ports.size(); ++port) {
    const std::uint32_t source = run.link(port).source;
    if (run.port(port).kind == object_kind::input && source != no_port &&
        run.port(port).flow != run.port(run.link(source).first_reader).flow) {
      agree[source] = false;
    }
  }
  return agree;
}

/// Adds the finding about two ports that should be alike, at the first one's place.
void add_mismatch(wiring_run& run, std::uint32_t port, std::uint32_t other, finding_cause cause) {
  if (!run.is_doubted(port) && !run.is_doubted(other)) {
    add_finding(run, kind_of("port-mismatch"), port,
                joined(run.here(port), " differs from ", run.there(other), ": ",
                       flow_differences(run.port(port).flow, run.port(other).flow)),
                cause);
  }
}

/// An input that differs from its output. When several agree, it is the output that differs.
void find_mismatch(wiring_run& run, std::uint32_t input, const std::vector<bool>& agree) {
  const std::uint32_t source = run.link(input).source;
  if (source == no_port || run.port(input).flow == run.port(source).flow) {
    return;
  }
  run.is_told[source] = true;
  const port_link& readers = run.link(source);
  const bool is_output_odd = agree[source] && readers.first_reader != readers.last_reader;
  if (is_output_odd && readers.first_reader == input) {
    add_mismatch(run, source, input, cause_at(run, source));
  } else {
    add_mismatch(run, input, source, cause_at(run, source));
  }
}

/// Inputs of one name and the same bytes, which come from outside, must agree too.
void find_odd_inputs(wiring_run& run, std::uint32_t input) {
  const std::uint32_t first = run.link(input).outside;
  if (first == no_port || run.port(first).flow == run.port(input).flow ||
      run.port(input).name.empty()) {
    return;
  }
  const used_range one = port_bytes(run.port(first).flow);
  if (one.begin < one.end && one.end == port_bytes(run.port(input).flow).end) {
    add_mismatch(run, input, first, {.number = first});
  }
}

void find_unlike_ports(wiring_run& run) {
  const std::vector<bool> agree = find_agreement(run);
  for (std::uint32_t port = 0; port < run.network.ports.size(); ++port) {
    find_small_port(run, port);
  }
  for (std::uint32_t port = 0; port < run.network.ports.size(); ++port) {
    if (run.port(port).kind == object_kind::input) {
      find_mismatch(run, port, agree);
      find_odd_inputs(run, port);
    }
  }
}

/// Of the findings with one cause, the first gets the others as its rest.
std::vector<wired_finding> one_of_each_cause(std::vector<caused_finding> found) {
  std::vector<wired_finding> all;
  std::map<finding_cause, std::size_t> known;
  for (caused_finding& one : found) {
    const auto [cause, is_new] = known.try_emplace(one.cause, all.size());
    if (is_new) {
      all.push_back(std::move(one.found));
    } else {
      all.at(cause->second).rest.push_back(std::move(one.found));
    }
  }
  std::ranges::stable_sort(all, {}, [](const wired_finding& one) {
    return std::tuple(one.dvi, one.place.line, one.place.column, one.place.offset);
  });
  return all;
}

wiring_run begin_run(const wired_network& network, const wiring_labels& labels) {
  const std::size_t dvis = network.doubted.size();
  return {.network = network,
          .labels = labels,
          .links = find_links(network),
          .repeating = disjoint_sets(dvis),
          .is_repeated = std::vector<bool>(network.ports.size()),
          .is_displaced = std::vector<bool>(dvis),
          .is_told = std::vector<bool>(network.ports.size())};
}

}  // namespace

finding_cause cause_at(wiring_run& run, std::uint32_t output) {
  if (run.is_repeated[output]) {
    return {cause_kind::repetition, run.repeating.find(run.port(output).dvi)};
  }
  return {cause_kind::port, output};
}

void add_finding(wiring_run& run, const finding_kind* kind, std::uint32_t port, std::string text,
                 finding_cause cause) {
  run.found.push_back({{.kind = kind,
                        .dvi = run.port(port).dvi,
                        .place = run.port(port).place,
                        .text = std::move(text)},
                       cause});
}

std::vector<wired_finding> find_wiring(const wired_network& network, const wiring_labels& labels,
                                       bool with_notes) {
  wiring_run run = begin_run(network, labels);
  find_late_producers(run);
  find_repeated_outputs(run);
  find_renamed_ports(run);
  find_inputs_for_outputs(run);
  find_unlike_ports(run);
  find_overwritten_bytes(run);
  find_image_overlaps(run, with_notes);
  return one_of_each_cause(std::move(run.found));
}

}  // namespace morvane::cli

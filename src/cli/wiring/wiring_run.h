// What the rules about a network share.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "cli/wiring/disjoint_sets.h"
#include "cli/wiring/port_links.h"
#include "cli/wiring/wired_network.h"

namespace morvane::cli {

/// What a cause is numbered by: a port, or a set of DVIs, values or images.
enum class cause_kind : std::uint8_t { port, order, repetition, bytes, image, images };

/// Findings with equal causes are one finding.
struct finding_cause {
  cause_kind kind = cause_kind::port;
  std::uint32_t number = 0;
  // NOLINTNEXTLINE(modernize-use-nullptr): the check takes a comparison with 0 for a pointer
  auto operator<=>(const finding_cause&) const = default;
};

struct caused_finding {
  wired_finding found;
  finding_cause cause;
};

/// What is known of a network while its rules are applied.
struct wiring_run {
  const wired_network& network;
  const wiring_labels& labels;
  port_links links;
  disjoint_sets repeating;         // DVIs, joined when they repeat outputs of each other
  std::vector<bool> is_repeated;   // outputs whose names are repeated
  std::vector<bool> is_displaced;  // DVIs that are out of order
  std::vector<bool> is_told;       // ports whose bytes a finding is about already
  std::vector<caused_finding> found{};

  [[nodiscard]] const wired_port& port(std::uint32_t at) const { return network.ports[at]; }
  [[nodiscard]] const port_link& link(std::uint32_t at) const { return links.ports[at]; }
  [[nodiscard]] std::string here(std::uint32_t at) const { return labels.port_here(port(at)); }
  [[nodiscard]] std::string there(std::uint32_t at) const { return labels.port_there(port(at)); }
  [[nodiscard]] bool is_doubted(std::uint32_t at) const { return network.doubted[port(at).dvi]; }
};

/// Adds a finding at the place of a port.
void add_finding(wiring_run& run, const finding_kind* kind, std::uint32_t port, std::string text,
                 finding_cause cause);

/// The cause of what is told about an output and those that read it: the output, or the DVIs that
/// repeat its name.
finding_cause cause_at(wiring_run& run, std::uint32_t output);

}  // namespace morvane::cli

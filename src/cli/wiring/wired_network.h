// The DVIs of a package or a folder as they work together: their ports and their images.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/findings/findings.h"
#include "cli/package/object_kind.h"
#include "cli/package/overlaps.h"
#include "cli/package/port_flow.h"

namespace morvane::cli {

struct wired_port {
  std::string_view name{};  // belongs to the package, or to what made the network
  std::uint32_t dvi = 0;
  std::uint32_t index = 0;  // among the inputs or the outputs of its DVI
  object_kind kind = object_kind::input;
  bool is_bitvector = false;
  finding_place place{};
  port_flow flow{};
};

/// An image, whose range has its DVI as the owner.
struct wired_image {
  used_range range{};
  finding_place place{};
};

struct wired_network {
  std::vector<wired_port>
      ports{};  // of each DVI, in the order of the package: inputs, then outputs
  std::vector<wired_image> images{};  // of each DVI that has one
  std::vector<bool> doubted{};        // DVIs that are known to be wrong: nothing is told about them
  bool is_whole = true;               // all DVIs are there, and none is doubted
};

/// How the texts of findings call ports and images: those that a finding is about, and others.
struct wiring_labels {
  std::function<std::string(const wired_port& port)> port_here;
  std::function<std::string(const wired_port& port)> port_there;
  std::function<std::string(std::uint32_t dvi)> image_here;
  std::function<std::string(std::uint32_t dvi)> image_there;
};

/// A finding, with the DVI that its place belongs to.
struct wired_finding {
  const finding_kind* kind;
  std::uint32_t dvi;
  finding_place place;
  std::string text;
  std::vector<wired_finding> rest{};  // what follows from the same cause
};

}  // namespace morvane::cli

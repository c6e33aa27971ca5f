// Where the images lie on the target, and which of them share addresses.
#pragma once

#include <cstdint>
#include <map>
#include <optional>

#include "cli/package/overlaps.h"

namespace morvane::cli {

/// The addresses that images take, each with the first image that takes it.
class memory_plan {
 public:
  /// Adds an image. Returns an image that it shares addresses with, if there is one.
  std::optional<std::uint32_t> add(used_range image);

 private:
  std::map<std::uint64_t, used_range> parts_{};  // by their begin; none overlap
};

}  // namespace morvane::cli

// The names of the DAGs and of the outputs of earlier DVIs, by their digests: 100 bytes are enough
// for all that is kept of a DVI.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string_view>
#include <vector>

#include "companion/port_flow.h"
#include "discovery/position_index.h"

namespace morvane::companion {

/// The names of the DAGs.
class earlier_names {
 public:
  /// For as many DVIs as the folder has.
  explicit earlier_names(std::size_t dvis) : index_(dvis), digests_(dvis) {}

  /// Adds the name of a DVI. Returns the first DVI whose name has the same digest, if there is one:
  /// almost always the same name.
  std::optional<std::uint32_t> add(std::string_view name, std::uint32_t dvi);

 private:
  position_index index_;                // of the digests
  std::vector<std::uint64_t> digests_;  // by DVI; 0 without a name
};

/// The last output of each name.
class earlier_outputs {
 public:
  /// For as many outputs at first.
  explicit earlier_outputs(std::size_t outputs) : index_(outputs) {}

  /// Takes up an output, in place of an earlier one of its name.
  void add(std::string_view name, const port_flow& flow, std::uint32_t dvi);

  /// The DVI with an output of this name, if its flow is another.
  [[nodiscard]] std::optional<std::uint32_t> find_other(std::string_view name,
                                                        const port_flow& flow) const;

 private:
  struct left_output {
    std::uint64_t name;  // its digest
    std::uint32_t flow;  // half of its digest
    std::uint32_t dvi;
  };

  [[nodiscard]] std::optional<std::uint32_t> position_of(std::uint64_t name) const;

  position_index index_;             // of the names
  std::deque<left_output> outputs_;  // not moved when it grows, as that takes memory twice
};

}  // namespace morvane::companion

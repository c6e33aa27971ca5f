// Finds the entries of a list by a hash of their names.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace morvane {

/// Positions in a list, by hashes whose lower 32 bits are evenly spread. Takes 8 bytes for each
/// entry: the names are in the list only.
class position_index {
 public:
  /// For at most this many entries.
  explicit position_index(std::size_t most) : slots_(2 * most + 1, none) {}

  /// How many entries it can take.
  [[nodiscard]] std::size_t most() const { return slots_.size() / 2; }

  void add(std::uint64_t hash, std::uint32_t position) {
    std::size_t slot = first_slot(hash);
    while (slots_[slot] != none) {
      slot = next_slot(slot);
    }
    slots_[slot] = position;
  }

  /// Calls take(position) for every entry of the hash, in the order in which they were added, and
  /// for some others too.
  template <class Take>
  void candidates(std::uint64_t hash, const Take& take) const {
    for (std::size_t slot = first_slot(hash); slots_[slot] != none; slot = next_slot(slot)) {
      take(slots_[slot]);
    }
  }

 private:
  static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

  [[nodiscard]] std::size_t first_slot(std::uint64_t hash) const {
    const std::uint64_t spread = hash & std::numeric_limits<std::uint32_t>::max();
    return static_cast<std::size_t>(spread * slots_.size() >> 32U);
  }
  [[nodiscard]] std::size_t next_slot(std::size_t slot) const {
    return slot + 1 == slots_.size() ? 0 : slot + 1;
  }

  std::vector<std::uint32_t> slots_;
};

}  // namespace morvane

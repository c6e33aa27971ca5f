// Numbers that belong together.
#pragma once

#include <cstdint>
#include <numeric>
#include <vector>

namespace morvane::cli {

/// The numbers below a limit, each at first in a set of its own.
class disjoint_sets {
 public:
  explicit disjoint_sets(std::size_t limit) : parents_(limit) {
    std::iota(parents_.begin(), parents_.end(), std::uint32_t{0});
  }

  /// A number of the set, the same for all in it.
  std::uint32_t find(std::uint32_t number) {
    while (parents_[number] != number) {
      parents_[number] = parents_[parents_[number]];
      number = parents_[number];
    }
    return number;
  }

  /// Joins the sets of two numbers.
  void join(std::uint32_t one, std::uint32_t other) { parents_[find(other)] = find(one); }

 private:
  std::vector<std::uint32_t> parents_;
};

}  // namespace morvane::cli

// Which records of two lists belong together.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace morvane::cli {

/// A record of one list or of both. Positions in the lists are counted from 0.
struct matched_name {
  std::string_view name;
  std::uint32_t occurrence;  // 1 for the first record of its list with the name
  std::optional<std::uint32_t> old_position;
  std::optional<std::uint32_t> new_position;
};

/// Matches the n-th record with a name with the n-th one with that name in the other list. Returns
/// the old list in its order, and behind it what only the new one has.
std::vector<matched_name> match_names(const std::vector<std::string_view>& old_names,
                                      const std::vector<std::string_view>& new_names);

}  // namespace morvane::cli

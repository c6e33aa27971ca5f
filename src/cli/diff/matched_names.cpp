#include "cli/diff/matched_names.h"

#include <unordered_map>

namespace morvane::cli {

namespace {

/// The positions in the new list that a name has, and how many of them the old list has met.
struct name_use {
  std::vector<std::uint32_t> new_positions{};
  std::uint32_t old_count = 0;
};

}  // namespace

std::vector<matched_name> match_names(const std::vector<std::string_view>& old_names,
                                      const std::vector<std::string_view>& new_names) {
  std::unordered_map<std::string_view, name_use> uses;
  for (std::uint32_t position = 0; position < new_names.size(); ++position) {
    uses[new_names[position]].new_positions.push_back(position);
  }
  std::vector<matched_name> matches;
  for (std::uint32_t position = 0; position < old_names.size(); ++position) {
    name_use& use = uses[old_names[position]];
    matched_name match{old_names[position], use.old_count + 1, position, {}};
    if (use.old_count < use.new_positions.size()) {
      match.new_position = use.new_positions[use.old_count];
    }
    ++use.old_count;
    matches.push_back(match);
  }
  std::unordered_map<std::string_view, std::uint32_t> new_counts;
  for (std::uint32_t position = 0; position < new_names.size(); ++position) {
    const std::uint32_t occurrence = ++new_counts[new_names[position]];
    if (occurrence > uses[new_names[position]].old_count) {
      matches.push_back({new_names[position], occurrence, {}, position});
    }
  }
  return matches;
}

}  // namespace morvane::cli

#include "cli/extract/extractable_images.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <unordered_map>
#include <utility>

#include "cli/check/table_rules.h"
#include "cli/findings/findings.h"
#include "cli/package/package_walk.h"

namespace morvane::cli {

namespace {

/// What a check finds in a name and what a file cannot have.
constexpr std::array refused_kinds{kind_of("empty-name"), kind_of("unsafe-dag-name"),
                                   kind_of("repeated-dag-name")};

/// What is wrong with the names of DVIs, by the offset of the name.
std::unordered_map<std::size_t, std::string> find_refused_names(const morvane_view& view) {
  std::unordered_map<std::size_t, std::string> refused;
  check_table(view, false, [&](const finding& found) {
    if (std::ranges::find(refused_kinds, found.kind) != refused_kinds.end()) {
      refused.emplace(found.place.offset, found.text);
    }
  });
  return refused;
}

}  // namespace

std::vector<std::string> refuse_names(const morvane_view& view,
                                      std::vector<morvane_view_dvi>& selected) {
  const auto refused = find_refused_names(view);
  std::vector<std::string> sentences;
  std::erase_if(selected, [&](const morvane_view_dvi& dvi) {
    const auto found = refused.find(dvi.offset + offsetof(morvane_dvi_desc, dag_name));
    if (found == refused.end()) {
      return false;
    }
    sentences.push_back(found->second);
    return true;
  });
  return sentences;
}

}  // namespace morvane::cli

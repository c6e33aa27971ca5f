#include "cli/lint/folder_check.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "cli/output/printable_text.h"
#include "io/file.h"

namespace morvane::cli {

void report_group(const folder_check& check, const std::vector<named_finding>& group) {
  std::vector<std::string> paths;
  paths.reserve(group.size());  // the findings refer to them
  std::optional<finding> first;
  for (const named_finding& found : group) {
    paths.push_back(found.name.empty() ? check.scope.folder
                                       : join_path(check.scope.folder, found.name));
    finding told{.kind = found.kind, .file = paths.back(), .place = whole_file, .text = found.text};
    if (first) {
      first->rest.push_back(std::move(told));
    } else {
      first = std::move(told);
    }
  }
  if (first) {
    check.sink(*first);
  }
}

std::string listed(const std::vector<std::string>& first, std::size_t all) {
  const std::size_t shown = std::min(first.size(), most_listed);
  std::string text;
  for (std::size_t i = 0; i < shown; ++i) {
    append_pieces(text, i == 0 ? "" : ", ", printable(first[i]));
  }
  return all > shown ? joined(text, " and ", all - shown, " more") : text;
}

}  // namespace morvane::cli

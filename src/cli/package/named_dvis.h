// The DVIs of a package that the user names.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "cli/package/opened_package.h"
#include "cli/package/package_walk.h"

namespace morvane::cli {

/// Calls a function with each DVI that has one of the names, in the order of the package; with all
/// DVIs when no name is given.
template <class Function>
void for_each_named_dvi(const morvane_view& view, const std::vector<std::string>& dag_names,
                        Function function) {
  const std::unordered_set<std::string_view> wanted(dag_names.begin(), dag_names.end());
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    if (wanted.empty() || wanted.contains(str(dvi.dag_name))) {
      function(dvi);
    }
  });
}

/// Tells of each of the names that no DVI has. Returns status_failed if there is one.
int report_missing_names(const opened_package& package, const std::vector<std::string>& dag_names);

}  // namespace morvane::cli

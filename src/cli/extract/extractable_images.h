// Which images of a package can be extracted, and under which names.
#pragma once

#include <morvane/package_view.h>

#include <string>
#include <vector>

#include "cli/package/opened_package.h"

namespace morvane::cli {

/// The DVIs with one of the names, in the order of the package; all DVIs when no name is given.
std::vector<morvane_view_dvi> select_dvis(const morvane_view& view,
                                          const std::vector<std::string>& dag_names);

/// The names, of those that are given, that no DVI has.
std::vector<std::string> missing_names(const morvane_view& view,
                                       const std::vector<std::string>& dag_names);

/// Takes out the DVIs whose images can have no file: those with unsafe names, and those whose name
/// an earlier DVI has too. Returns a sentence about each.
std::vector<std::string> refuse_names(const morvane_view& view,
                                      std::vector<morvane_view_dvi>& selected);

}  // namespace morvane::cli

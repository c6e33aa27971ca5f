// Which images of a package can be extracted, and under which names.
#pragma once

#include <morvane/package_view.h>

#include <string>
#include <vector>

#include "cli/package/opened_package.h"

namespace morvane::cli {

/// Takes out the DVIs whose images can have no file: those with unsafe names, and those whose name
/// an earlier DVI has too. Returns a sentence about each.
std::vector<std::string> refuse_names(const morvane_view& view,
                                      std::vector<morvane_view_dvi>& selected);

}  // namespace morvane::cli

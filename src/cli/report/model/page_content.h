// What a page about a package tells, found out before the page is written.
#pragma once

#include <morvane/package_view.h>

#include <cstdint>
#include <vector>

#include "cli/check/check_package.h"
#include "cli/findings/finding_output.h"
#include "cli/output/console.h"
#include "cli/package/opened_package.h"
#include "cli/report/model/network_flow.h"
#include "cli/report/model/package_changes.h"

namespace morvane::cli {

/// What the check of a package found.
struct checked_package {
  finding_counts counts{};
  std::vector<finding> errors{};  // the first ones of each severity; so below
  std::vector<finding> warnings{};
  std::vector<finding> notes{};
};

/// Numbers of what can be reached in a package.
struct package_totals {
  std::uint64_t ports = 0;
  std::uint64_t variables = 0;
  std::uint64_t smbs = 0;
  std::uint64_t image_bytes = 0;
  morvane_view_dvi biggest{};  // the first DVI with the biggest image
};

struct page_content {
  const opened_package& package;
  checked_package checked{};
  package_totals totals{};
  network_flow flow{};
  const package_changes* changes = nullptr;  // null when there is nothing to compare with
};

/// Checks a package and follows its data. Shows how far the work has come.
page_content find_content(const opened_package& package, console& streams);

}  // namespace morvane::cli

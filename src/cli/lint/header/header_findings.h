// The findings about one header, before they are told.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/findings/findings.h"

namespace morvane::cli {

/// A finding at a place of the header.
struct header_finding {
  const finding_kind* kind;
  std::size_t place;
  std::string text;
  std::optional<severity> level{};  // that of the kind if there is none
};

/// In the order in which they were found.
using header_findings = std::vector<header_finding>;

}  // namespace morvane::cli

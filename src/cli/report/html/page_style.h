// How a page looks.
#pragma once

#include <string_view>

namespace morvane::cli {

/// The style sheet of every page.
extern const std::string_view page_style;

/// Its SHA-256, as the page's Content-Security-Policy names it. A test compares the two.
inline constexpr std::string_view page_style_hash =
    "sha256-s2eBkE/a8klW8EBwoSBo/S4096WSxuSitGE6GuB25HM=";

}  // namespace morvane::cli

// How a page looks.
#pragma once

#include <string_view>

namespace morvane::cli {

/// The style sheet of every page.
extern const std::string_view page_style;

/// Its SHA-256, as the page's Content-Security-Policy names it. A test compares the two.
inline constexpr std::string_view page_style_hash =
    "sha256-TqVkkBYqtUxNeyyu1W+92VoeAnIlljDkj0QfcQ0RQTg=";

}  // namespace morvane::cli

// What a header as a file is, before anything in it is read.
#pragma once

#include <string_view>

namespace morvane::cli {

/// What a file is that cannot be a header: "UTF-16 text", "binary data". Empty for a header.
std::string_view coding_of(std::string_view text);

/// Whether a merge left a line with a conflict.
bool is_conflict_marker(std::string_view line);

}  // namespace morvane::cli

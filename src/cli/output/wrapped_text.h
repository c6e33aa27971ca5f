// Texts for a terminal of 80 columns.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace morvane::cli {

/// The words of a text in lines, each with its line feed. All lines but the first are indented, and
/// the first has room for as many columns in front of it.
std::string wrapped(std::string_view text, std::size_t indent = 0);

}  // namespace morvane::cli

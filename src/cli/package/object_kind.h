// What packages consist of and headers describe, and how it is called.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace morvane::cli {

/// What a header describes comes first, so that tables of it need no more rows.
enum class object_kind : std::uint8_t { dag, input, output, variable, smb, dvi, image, package };

/// How many of them a header describes.
inline constexpr std::size_t object_kinds = 5;

/// "input", "output", "variable", "SMB"; "DAG", "DVI", "image" or "package".
constexpr std::string_view name_of(object_kind kind) {
  constexpr std::array<std::string_view, 8> names{"DAG", "input", "output", "variable",
                                                  "SMB", "DVI",   "image",  "package"};
  return names.at(static_cast<std::size_t>(kind));
}

}  // namespace morvane::cli

// How the compiler names its files. The inspection names its output in the same way.
#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// The type of an image, the text after the last "." of its name.
inline constexpr std::string_view dvi_type = "dvi";

inline std::string image_name(std::string_view stem) {
  return std::string(stem).append(".").append(dvi_type);
}

/// What comes before the index of a DVI, which ends before the type of its image.
inline constexpr std::string_view index_mark = "_split_";

/// What the name of a header ends with, behind the stem.
inline constexpr std::string_view header_ending = ".h";

inline std::string header_name(std::string_view stem) {
  return std::string(stem).append(header_ending);
}

/// What every header has before the stem, or none.
inline constexpr std::string_view header_mark = "_";

/// The name of a header in a folder in which all headers have a leading underscore.
inline std::string marked_header_name(std::string_view stem) {
  return std::string(header_mark).append(header_name(stem));
}

}  // namespace morvane

// The name of a file on a page.
#pragma once

#include <string>
#include <string_view>

namespace morvane::cli {

/// The last part of a path. The folders are not on the page: it is for other people too.
inline std::string file_name(std::string_view path) {
  return std::string(path.substr(path.rfind('/') + 1));
}

}  // namespace morvane::cli

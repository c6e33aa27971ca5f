// The macros that a header defines.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace morvane::cli {

/// Tells whether a macro is defined. The index is made when it is asked first, as most headers need
/// none.
class macro_index {
 public:
  explicit macro_index(std::string_view header) : header_(header) {}

  /// Whether the header defines the macro anywhere.
  bool defines(std::string_view name);

 private:
  void build();

  std::string_view header_;
  std::vector<std::size_t> hashes_{};  // of the names, sorted
  bool is_built_ = false;
};

}  // namespace morvane::cli

// Where a header defines its macros.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace morvane::cli {

/// Finds the definition of a macro by its name. The index is made when it is asked first, as most
/// headers need none.
class macro_index {
 public:
  explicit macro_index(std::string_view header) : header_(header) {}

  /// Whether the header defines the macro before a place.
  bool defines(std::string_view name, std::size_t before);

 private:
  struct entry {
    std::uint64_t hash;
    std::size_t place;
  };
  void build();

  std::string_view header_;
  std::vector<entry> entries_{};
  bool is_built_ = false;
};

}  // namespace morvane::cli

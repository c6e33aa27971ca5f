// Keeps many names in little memory.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace morvane {

/// Names without NULs, one behind the other in blocks. A name stays where it is, also when the
/// store grows or is moved.
class name_store {
 public:
  /// Adds a name. Returns it as it is kept: with a NUL behind it.
  const char* add(std::string_view name) {
    const std::size_t wanted = name.size() + 1;
    if (blocks_.empty() || blocks_.back().left < wanted) {
      const std::size_t size = std::max(wanted, block_size);
      // NOLINTNEXTLINE(*-avoid-c-arrays): raw bytes
      blocks_.push_back({.bytes = std::make_unique<char[]>(size), .size = size, .left = size});
    }
    block& last = blocks_.back();
    char* const kept = last.bytes.get() + (last.size - last.left);
    name.copy(kept, name.size());
    kept[name.size()] = '\0';
    last.left -= wanted;
    return kept;
  }

 private:
  static constexpr std::size_t block_size = std::size_t{16} << 10U;  // bytes

  struct block {
    std::unique_ptr<char[]> bytes;  // NOLINT(*-avoid-c-arrays): raw bytes
    std::size_t size;
    std::size_t left;  // bytes at the end that are free
  };

  std::vector<block> blocks_{};
};

}  // namespace morvane

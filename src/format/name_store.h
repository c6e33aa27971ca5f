// Keeps many names in little memory.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace morvane {

/// Names without NULs, one behind the other in blocks. A name stays where it is, also when the
/// store is moved: a store that grows copies nothing.
class name_store {
 public:
  /// Adds a name. Returns it as it is kept: with a NUL behind it.
  const char* add(std::string_view name) {
    const std::size_t wanted = name.size() + 1;
    if (wanted > left_) {
      left_ = std::max(wanted, block_size);
      blocks_.push_back(std::make_unique<char[]>(left_));  // NOLINT(*-avoid-c-arrays): raw bytes
      next_ = blocks_.back().get();
    }
    char* const kept = next_;
    name.copy(kept, name.size());
    kept[name.size()] = '\0';
    next_ += wanted;
    left_ -= wanted;
    return kept;
  }

 private:
  static constexpr std::size_t block_size = std::size_t{16} << 10U;  // bytes

  std::vector<std::unique_ptr<char[]>> blocks_{};  // NOLINT(*-avoid-c-arrays): raw bytes
  char* next_ = nullptr;                           // the free part of the last block
  std::size_t left_ = 0;
};

}  // namespace morvane

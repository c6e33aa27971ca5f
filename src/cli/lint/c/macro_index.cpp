#include "cli/lint/c/macro_index.h"

#include <algorithm>
#include <functional>

#include "cli/lint/c/c_text.h"

namespace morvane::cli {

bool macro_index::defines(std::string_view name) {
  if (!is_built_) {
    build();
  }
  return std::ranges::binary_search(hashes_, std::hash<std::string_view>()(name));
}

void macro_index::build() {
  constexpr std::string_view word = "define";
  is_built_ = true;
  for (std::size_t place = header_.find(word); place != std::string_view::npos;
       place = header_.find(word, place + word.size())) {
    const std::string_view before =
        trimmed(header_.substr(0, place).substr(place - std::min<std::size_t>(place, 16)));
    std::size_t begin = place + word.size();
    while (begin < header_.size() && is_white(header_[begin])) {
      ++begin;
    }
    const std::string_view name = leading_name(header_.substr(begin));
    if (before.ends_with('#') && !name.empty()) {
      hashes_.push_back(std::hash<std::string_view>()(name));
    }
  }
  std::ranges::sort(hashes_);
}

}  // namespace morvane::cli

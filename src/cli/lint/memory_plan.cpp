#include "cli/lint/memory_plan.h"

#include <algorithm>
#include <iterator>

namespace morvane::cli {

std::optional<std::uint32_t> memory_plan::add(used_range image) {
  std::optional<std::uint32_t> partner;
  auto part = parts_.upper_bound(image.begin);
  if (part != parts_.begin() && std::prev(part)->second.end > image.begin) {
    --part;
  }
  while (image.begin < image.end) {
    const bool is_free = part == parts_.end() || part->first > image.begin;
    if (is_free) {
      const std::uint64_t end = part == parts_.end() ? image.end : std::min(image.end, part->first);
      parts_.emplace(image.begin, used_range{image.owner, image.begin, end});
      image.begin = end;
      continue;
    }
    partner = partner ? partner : std::optional(part->second.owner);
    image.begin = part->second.end;
    ++part;
  }
  return partner;
}

}  // namespace morvane::cli

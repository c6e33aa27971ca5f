#include "cli/diff/byte_difference.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace morvane::cli {

namespace {

constexpr std::size_t compared_at_once = std::size_t{1} << 20U;

bool are_equal(std::span<const std::uint8_t> one, std::span<const std::uint8_t> other) {
  return one.size() == other.size() &&
         (one.empty() || std::memcmp(one.data(), other.data(), one.size()) == 0);
}

std::uint64_t count_differences(std::span<const std::uint8_t> one,
                                std::span<const std::uint8_t> other) {
  std::uint64_t count = 0;
  for (std::size_t i = 0; i < one.size(); ++i) {
    count += one[i] != other[i] ? 1U : 0U;
  }
  return count;
}

/// Takes a part from the front.
package_part take_part(package_part& from, std::size_t size) {
  const package_part part{from.package, from.bytes.first(size)};
  from.bytes = from.bytes.subspan(size);
  return part;
}

void release(const package_part& part) {
  part.package.release(part.bytes);
}

}  // namespace

std::optional<byte_difference> compare_bytes(package_part old_part, package_part new_part) {
  byte_difference found{.old_size = old_part.bytes.size(),
                        .new_size = new_part.bytes.size(),
                        .first = std::min(old_part.bytes.size(), new_part.bytes.size()),
                        .count = 0};
  std::uint64_t done = 0;
  while (!old_part.bytes.empty() && !new_part.bytes.empty()) {
    const std::size_t size =
        std::min({compared_at_once, old_part.bytes.size(), new_part.bytes.size()});
    const package_part one = take_part(old_part, size);
    const package_part other = take_part(new_part, size);
    if (!are_equal(one.bytes, other.bytes)) {
      const auto at = std::ranges::mismatch(one.bytes, other.bytes).in1 - one.bytes.begin();
      found.first = std::min(found.first, done + static_cast<std::uint64_t>(at));
      found.count += count_differences(one.bytes, other.bytes);
    }
    release(one);
    release(other);
    done += size;
  }
  found.count += old_part.bytes.size() + new_part.bytes.size();
  return found.count == 0 ? std::nullopt : std::optional(found);
}

bool have_same_bytes(const package_bytes& old_package, const package_bytes& new_package,
                     const std::function<void(std::uint64_t done)>& progress) {
  package_part old_part{old_package, old_package.bytes()};
  package_part new_part{new_package, new_package.bytes()};
  bool same = old_part.bytes.size() == new_part.bytes.size();
  while (same && !old_part.bytes.empty()) {
    const std::size_t size = std::min(compared_at_once, old_part.bytes.size());
    const package_part one = take_part(old_part, size);
    const package_part other = take_part(new_part, size);
    same = are_equal(one.bytes, other.bytes);
    release(one);
    release(other);
    progress(old_package.bytes().size() - old_part.bytes.size());
  }
  return same;
}

}  // namespace morvane::cli

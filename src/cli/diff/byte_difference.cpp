#include "cli/diff/byte_difference.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <numeric>

namespace morvane::cli {

namespace {

using byte_span = std::span<const std::uint8_t>;

/// Calls a function with the parts of both that are at the same places, for as long as it wants to
/// go on, and gives back their memory.
template <class Function>
void for_each_part(const package_part& old_part, const package_part& new_part, Function goes_on) {
  constexpr std::size_t compared_at_once = std::size_t{1} << 20U;
  const std::size_t size = std::min(old_part.bytes.size(), new_part.bytes.size());
  for (std::size_t done = 0; done < size; done += compared_at_once) {
    const std::size_t count = std::min(compared_at_once, size - done);
    const byte_span one = old_part.bytes.subspan(done, count);
    const byte_span other = new_part.bytes.subspan(done, count);
    const bool is_wanted = goes_on(one, other, done);
    old_part.package.release(one);
    new_part.package.release(other);
    if (!is_wanted) {
      return;
    }
  }
}

}  // namespace

std::optional<byte_difference> compare_bytes(const package_part& old_part,
                                             const package_part& new_part) {
  const auto [least, most] = std::minmax({old_part.bytes.size(), new_part.bytes.size()});
  byte_difference found{.old_size = old_part.bytes.size(),
                        .new_size = new_part.bytes.size(),
                        .first = least,
                        .count = most - least};
  for_each_part(old_part, new_part, [&](byte_span one, byte_span other, std::size_t done) {
    if (std::memcmp(one.data(), other.data(), one.size()) != 0) {
      const auto at = std::ranges::mismatch(one, other).in1 - one.begin();
      found.first = std::min(found.first, std::uint64_t{done + static_cast<std::size_t>(at)});
      found.count = std::inner_product(one.begin(), one.end(), other.begin(), found.count,
                                       std::plus(), std::not_equal_to());
    }
    return true;
  });
  return found.count == 0 ? std::nullopt : std::optional(found);
}

bool have_same_bytes(const package_bytes& old_package, const package_bytes& new_package,
                     const std::function<void(std::uint64_t done)>& progress) {
  bool is_same = old_package.bytes().size() == new_package.bytes().size();
  if (is_same) {
    for_each_part({old_package, old_package.bytes()}, {new_package, new_package.bytes()},
                  [&](byte_span one, byte_span other, std::size_t done) {
                    is_same = std::memcmp(one.data(), other.data(), one.size()) == 0;
                    progress(done + one.size());
                    return is_same;
                  });
  }
  return is_same;
}

}  // namespace morvane::cli

#include "companion/digest.h"

#define XXH_INLINE_ALL  // NOLINT(cppcoreguidelines-macro-usage): how this header is asked for it
#include <xxhash.h>

#include <algorithm>
#include <string_view>

namespace morvane::companion {

namespace {

constexpr std::size_t step = std::size_t{1} << 20U;

std::string digits_of(XXH128_hash_t digest) {
  constexpr std::string_view digits = "0123456789abcdef";
  XXH128_canonical_t canonical;
  XXH128_canonicalFromHash(&canonical, digest);
  std::string text;
  for (const unsigned char byte : canonical.digest) {
    text += digits[byte >> 4U];
    text += digits[byte & 0xFU];
  }
  return text;
}

}  // namespace

std::string xxh3_128(const package_bytes& package, std::span<const std::uint8_t> bytes) {
  XXH3_state_t state;
  XXH3_128bits_reset(&state);
  while (!bytes.empty()) {
    const auto part = bytes.first(std::min(step, bytes.size()));
    XXH3_128bits_update(&state, part.data(), part.size());
    package.release(part);
    bytes = bytes.subspan(part.size());
  }
  return digits_of(XXH3_128bits_digest(&state));
}

}  // namespace morvane::companion

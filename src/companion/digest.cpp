#include "companion/digest.h"

#define XXH_INLINE_ALL  // NOLINT(cppcoreguidelines-macro-usage): how this header is asked for it
#include <xxhash.h>

#include <algorithm>
#include <string_view>

namespace morvane::companion {

namespace {

constexpr std::size_t step = std::size_t{1} << 20U;

}  // namespace

struct byte_digest::sums {
  XXH3_state_t state;
};

byte_digest::byte_digest() : sums_(std::make_unique<sums>()) {
  XXH3_128bits_reset(&sums_->state);
}

byte_digest::~byte_digest() = default;

void byte_digest::add(std::span<const std::byte> bytes) {
  XXH3_128bits_update(&sums_->state, bytes.data(), bytes.size());
}

std::string byte_digest::text() const {
  constexpr std::string_view digits = "0123456789abcdef";
  XXH128_canonical_t canonical;
  XXH128_canonicalFromHash(&canonical, XXH3_128bits_digest(&sums_->state));
  std::string text;
  for (const unsigned char byte : canonical.digest) {
    text += digits[byte >> 4U];
    text += digits[byte & 0xFU];
  }
  return text;
}

std::string xxh3_128(const package_bytes& package, std::span<const std::uint8_t> bytes) {
  byte_digest digest;
  while (!bytes.empty()) {
    const auto part = bytes.first(std::min(step, bytes.size()));
    digest.add(std::as_bytes(part));
    package.release(part);
    bytes = bytes.subspan(part.size());
  }
  return digest.text();
}

}  // namespace morvane::companion

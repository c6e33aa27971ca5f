#include "companion/byte_digest.h"

#define XXH_INLINE_ALL  // NOLINT(cppcoreguidelines-macro-usage): how this header is asked for it
#include <xxhash.h>

#include <new>
#include <string_view>

namespace morvane::companion {

struct byte_digest::state {
  XXH3_state_t* sums = XXH3_createState();
};

byte_digest::byte_digest() : state_(std::make_unique<state>()) {
  if (state_->sums == nullptr) {
    throw std::bad_alloc();
  }
  XXH3_128bits_reset(state_->sums);
}

byte_digest::~byte_digest() {
  XXH3_freeState(state_->sums);
}

void byte_digest::add(std::span<const std::byte> bytes) {
  XXH3_128bits_update(state_->sums, bytes.data(), bytes.size());
}

std::string byte_digest::text() const {
  constexpr std::string_view digits = "0123456789abcdef";
  XXH128_canonical_t canonical;
  XXH128_canonicalFromHash(&canonical, XXH3_128bits_digest(state_->sums));
  std::string text;
  for (const unsigned char byte : canonical.digest) {
    text += digits[byte >> 4U];
    text += digits[byte & 0xFU];
  }
  return text;
}

}  // namespace morvane::companion

#include "cli/package/digest.h"

#define XXH_INLINE_ALL  // NOLINT(cppcoreguidelines-macro-usage): how this header is asked for it
#include <xxhash.h>

#include <algorithm>
#include <memory>

#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

constexpr std::size_t digested_at_once = std::size_t{1} << 20U;

std::string hexadecimal_text(XXH128_hash_t hash) {
  XXH128_canonical_t canonical;
  XXH128_canonicalFromHash(&canonical, hash);
  std::string text;
  for (const unsigned char byte : canonical.digest) {
    append_digits(text, byte);
  }
  return text;
}

}  // namespace

std::string xxh3_128(const package_bytes& package, std::span<const std::uint8_t> bytes) {
  const auto state = std::make_unique<XXH3_state_t>();
  XXH3_128bits_reset(state.get());
  while (!bytes.empty()) {
    const auto part = bytes.first(std::min(digested_at_once, bytes.size()));
    XXH3_128bits_update(state.get(), part.data(), part.size());
    package.release(part);
    bytes = bytes.subspan(part.size());
  }
  return hexadecimal_text(XXH3_128bits_digest(state.get()));
}

std::string xxh3_128(std::string_view text) {
  return hexadecimal_text(XXH3_128bits(text.data(), text.size()));
}

}  // namespace morvane::cli

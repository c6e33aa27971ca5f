// Digests: XXH3 with 128 bits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "companion/package_bytes.h"

namespace morvane::companion {

/// The digest of bytes that come one after the other.
class byte_digest {
 public:
  byte_digest();
  byte_digest(const byte_digest&) = delete;
  byte_digest& operator=(const byte_digest&) = delete;
  byte_digest(byte_digest&&) = delete;
  byte_digest& operator=(byte_digest&&) = delete;
  ~byte_digest();

  void add(std::span<const std::byte> bytes);

  /// 32 hexadecimal digits, as `xxhsum -H2` prints them.
  [[nodiscard]] std::string text() const;

 private:
  struct sums;
  std::unique_ptr<sums> sums_;
};

/// The digest of a part of a package's bytes. Gives back the memory of the bytes as it goes on.
std::string xxh3_128(const package_bytes& package, std::span<const std::uint8_t> bytes);

}  // namespace morvane::companion

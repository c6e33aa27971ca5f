// Digests of bytes: XXH3 with 128 bits.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>

namespace morvane::companion {

/// A digest of bytes that come one after the other.
class byte_digest {
 public:
  byte_digest();
  byte_digest(const byte_digest&) = delete;
  byte_digest& operator=(const byte_digest&) = delete;
  ~byte_digest();

  void add(std::span<const std::byte> bytes);

  /// 32 hexadecimal digits, as xxhsum -H2 prints them.
  [[nodiscard]] std::string text() const;

 private:
  struct state;
  std::unique_ptr<state> state_;
};

}  // namespace morvane::companion

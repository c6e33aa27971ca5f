// Digests: XXH3.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "cli/package/package_bytes.h"

namespace morvane::cli {

/// The digest of a part of a package's bytes: 32 hexadecimal digits, as `xxhsum -H2` prints them.
/// Gives back the memory of the bytes as it goes on.
std::string xxh3_128(const package_bytes& package, std::span<const std::uint8_t> bytes);

/// The digest of a text.
std::string xxh3_128(std::string_view text);

}  // namespace morvane::cli

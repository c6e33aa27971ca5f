// Digests of images.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "companion/package_bytes.h"

namespace morvane::companion {

/// The XXH3-128 of a part of a package's bytes, as `xxhsum -H2` prints it: 32 hexadecimal digits.
/// Gives back the memory of the bytes as it goes on.
std::string xxh3_128(const package_bytes& package, std::span<const std::uint8_t> bytes);

}  // namespace morvane::companion

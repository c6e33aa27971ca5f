// Bytes to a descriptor, every write checked.
#pragma once

#include <cstdint>
#include <span>

namespace morvane::companion {

/// Writes all bytes, and waits where a descriptor takes none now. Returns 0, or the errno of the
/// failure.
int write_checked(int descriptor, std::span<const std::uint8_t> bytes);

}  // namespace morvane::companion

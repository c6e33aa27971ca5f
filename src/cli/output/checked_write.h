// Bytes to a descriptor, every write checked.
#pragma once

#include <cstddef>
#include <span>

namespace morvane::cli {

/// Writes all bytes, and waits where a descriptor takes none now. Returns 0, or the errno of the
/// failure.
int write_checked(int descriptor, std::span<const std::byte> bytes);

}  // namespace morvane::cli

// How many bytes differ, and where.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>

#include "cli/package/package_bytes.h"

namespace morvane::cli {

/// Two stretches of bytes that are not the same. A byte that only the longer one has differs.
struct byte_difference {
  std::uint64_t old_size;  // bytes
  std::uint64_t new_size;
  std::uint64_t first;  // offset of the first byte that differs, from the start of the stretches
  std::uint64_t count;  // bytes that differ
};

/// A stretch of a package.
struct package_part {
  const package_bytes& package;
  std::span<const std::uint8_t> bytes;
};

/// Compares to the end; nothing when both are the same. Gives back the memory of both as it goes
/// on; so below.
std::optional<byte_difference> compare_bytes(const package_part& old_part,
                                             const package_part& new_part);

/// Whether both packages have the same bytes. Stops at the first part that differs, and tells after
/// each part how many bytes it compared.
bool have_same_bytes(const package_bytes& old_package, const package_bytes& new_package,
                     const std::function<void(std::uint64_t done)>& progress);

}  // namespace morvane::cli

// Reads everything that a view hands out.
#pragma once

#include <morvane/package_view.h>

#include <cstdint>

namespace morvane::test {

/// What was reached.
struct reached {
  std::uint64_t records = 0;
  std::uint64_t bytes = 0;  // of records, texts and images that were read
};

/// Asks for every record of every DVI, and for one beyond each list. Reads a byte at both ends of
/// everything and throws std::logic_error when something that a view promises does not hold.
reached read_whole_package(const morvane_view& view);

}  // namespace morvane::test

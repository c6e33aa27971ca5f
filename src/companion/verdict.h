// The line that sums a package up.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "companion/check_package.h"

namespace morvane::companion {

/// "1 port", "2 ports"
std::string count_of(std::uint64_t number, std::string_view thing);

/// "net.bin: sound, 3 DVIs, 14 ports, with vproc records, 25379 bytes", with the word in the place
/// of "sound".
std::string verdict_line(std::string_view path, std::string_view word,
                         const package_summary& summary);

}  // namespace morvane::companion

// The line that sums a package up.
#pragma once

#include <string>
#include <string_view>

#include "cli/check/check_package.h"

namespace morvane::cli {

/// "net.bin: sound, 3 DVIs, 14 ports, with vproc records, 25379 bytes", with the word in the place
/// of "sound".
std::string verdict_line(std::string_view path, std::string_view word,
                         const package_summary& summary);

}  // namespace morvane::cli

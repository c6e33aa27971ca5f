// The version of morvane itself.
#pragma once

namespace morvane::cli {

/// Not that of the packages, which format/build_constants.h has. The build reads it here.
inline constexpr const char* program_version = "1.0.0";

}  // namespace morvane::cli

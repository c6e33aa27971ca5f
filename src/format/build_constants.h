// The version and the source revision of this build, as the version line and every package show
// them.
#pragma once

#include <cstdint>
#include <string>

namespace morvane {

inline constexpr std::uint32_t version_major = 2;
inline constexpr std::uint32_t version_minor = 1;
inline constexpr std::uint32_t version_patch = 6;

/// The version as the package header holds it: major in bits 31..24, minor in 23..16, patch
/// in 15..0.
inline constexpr std::uint32_t version_word =
    version_major << 24 | version_minor << 16 | version_patch;
static_assert(version_word == 0x02010006);

/// The source revision, as the release process hands it over.
inline constexpr const char* revision_hash_text = "0xb3b3814";

/// The source revision as the package header holds it.
std::uint32_t revision_hash();

/// "version 2.1.6 ( HASH b3b3814 )" for a version word and a revision hash. The hash has at least
/// 7 digits: zeros that it begins with are lost in the number and come back here.
std::string version_text(std::uint32_t version, std::uint32_t hash);

}  // namespace morvane

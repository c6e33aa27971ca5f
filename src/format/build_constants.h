// The version and the source revision of this build. The version line prints them, and every
// package contains them.
#pragma once

#include <cstdint>
#include <string>

namespace morvane {

inline constexpr std::uint32_t version_major = 2;
inline constexpr std::uint32_t version_minor = 1;
inline constexpr std::uint32_t version_patch = 6;

/// The version in a package header: major in bits 31..24, minor in 23..16, patch in 15..0.
inline constexpr std::uint32_t version_word =
    version_major << 24 | version_minor << 16 | version_patch;
static_assert(version_word == 0x02010006);

/// The source revision, in the form in which the release process writes it.
inline constexpr const char* revision_hash_text = "0xb3b3814";

/// The source revision in a package header: the hexadecimal digits as a number.
std::uint32_t revision_hash();

/// The version in a version word: "2.1.6".
std::string version_number(std::uint32_t version);

/// A revision hash with at least 7 digits, as the number has lost its leading zeros: "b3b3814".
std::string hash_text(std::uint32_t hash);

/// Returns "version 2.1.6 ( HASH b3b3814 )" for a version word and a revision hash.
std::string version_text(std::uint32_t version, std::uint32_t hash);

}  // namespace morvane

#include "format/build_constants.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace morvane {

std::uint32_t revision_hash() {
  return static_cast<std::uint32_t>(std::strtol(revision_hash_text, nullptr, 0));
}

std::string version_text(std::uint32_t version, std::uint32_t hash) {
  std::array<char, 128> text{};
  std::snprintf(text.data(), text.size(), "version %u.%u.%u ( HASH %07x )", version >> 24,
                version >> 16 & 0xFF, version & 0xFFFF, hash);
  return text.data();
}

}  // namespace morvane

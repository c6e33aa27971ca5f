#include "format/build_constants.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>

#include "io/message.h"

namespace morvane {

namespace {

constexpr std::size_t shortest_hash = 7;  // digits

}  // namespace

std::uint32_t revision_hash() {
  return static_cast<std::uint32_t>(std::strtol(revision_hash_text, nullptr, 0));
}

std::string version_number(std::uint32_t version) {
  std::string text;
  append_pieces(text, version >> 24, ".", version >> 16 & 0xFF, ".", version & 0xFFFF);
  return text;
}

std::string hash_text(std::uint32_t hash) {
  std::array<char, 8> digits{};
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), hash, 16);
  std::string text(digits.data(), result.ptr);
  text.insert(0, shortest_hash - std::min(shortest_hash, text.size()), '0');
  return text;
}

std::string version_text(std::uint32_t version, std::uint32_t hash) {
  std::string text;
  append_pieces(text, "version ", version_number(version), " ( HASH ", hash_text(hash), " )");
  return text;
}

}  // namespace morvane

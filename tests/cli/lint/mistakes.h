// Mistakes in headers, one after the other.
#pragma once

#include <array>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace morvane::test {

using random_numbers = std::mt19937_64;

inline std::size_t below(random_numbers& random, std::size_t limit) {
  return random() % limit;
}
inline bool one_in(random_numbers& random, std::size_t limit) {
  return below(random, limit) == 0;
}

inline constexpr std::array<std::string_view, 24> port_suffixes{"_dbase_byte_offset",
                                                                "_is_bitvector",
                                                                "_W",
                                                                "_H",
                                                                "_D",
                                                                "_P",
                                                                "_dpitch_num_bytes",
                                                                "_dram_format",
                                                                "_dram_size_num_bytes",
                                                                "_sign",
                                                                "_datasize",
                                                                "_expoffset",
                                                                "_expbits",
                                                                "_drotate_bit_offset",
                                                                "_hflip_bit_offset",
                                                                "_vflip_bit_offset",
                                                                "_dflip_bit_offset",
                                                                "_pflip_bit_offset",
                                                                "_drotate",
                                                                "_hflip",
                                                                "_vflip",
                                                                "_dflip",
                                                                "_pflip",
                                                                "_qubrix_demangled_name"};

/// A header that is being made.
struct header_lines {
  std::string dag;
  std::vector<std::string> lines{};
};

void add_line(header_lines& header, std::string line);

/// "#define NAME VALUE"
std::string definition(const std::string& name, const std::string& value);

/// A value that fits into the field of a suffix.
std::string good_value(std::string_view suffix, random_numbers& random);

/// Changes, adds or moves a line.
void make_mistake(header_lines& header, random_numbers& random);

/// The lines with their ends; the last may have none.
std::string text_of(const header_lines& header, random_numbers& random);

}  // namespace morvane::test

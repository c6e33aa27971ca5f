// Mistakes in headers, one after the other.
#pragma once

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

/// The ends of a port's macros; that of the layer name is the last one.
std::vector<std::string_view> suffixes_of_ports();
inline const std::vector<std::string_view> port_suffixes = suffixes_of_ports();

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

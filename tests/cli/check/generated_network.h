// Networks that are right, made from random numbers.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace morvane::test {

struct generated_port {
  std::string name;
  std::uint32_t offset = 0;
  std::uint32_t size = 0;  // also W, with values of 8 bits
  std::uint32_t width = 0;
};

struct generated_dvi {
  std::string name;
  std::vector<generated_port> inputs{};
  std::vector<generated_port> outputs{};
  std::uint32_t image = 0;  // address
};

using generated_network = std::vector<generated_dvi>;

/// A network in which data goes on to the next DVIs, forks, joins and skips DVIs. Some DVIs share a
/// camera's image or keep a state. Memory is used again when nobody reads it any more, also in
/// place.
generated_network make_network(std::mt19937_64& random, std::size_t dvis);

/// The package of a network.
std::string package_of(const generated_network& network);

}  // namespace morvane::test

// Compiler output folders made from choices. Their DAG names carry their index, so packing what an
// inspection regenerates gives the same package.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace morvane::test {

/// Bytes that are used up one by one to choose; after the last every choice is 0.
struct choices {
  std::string_view bytes;
  std::size_t next = 0;
};

/// A number below the limit, which is at most 256.
unsigned choose(choices& source, unsigned limit);

/// The files of a folder by their names: one to five DVIs with their headers, which hold ports,
/// variables and SMBs in any order, numbers of any kind, comments, noise and line ends of any kind.
/// Names keep clear of each other: no port's macros look like another's.
std::map<std::string, std::string> generate_folder(choices& source);

}  // namespace morvane::test

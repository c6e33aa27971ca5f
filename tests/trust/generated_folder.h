// Makes compiler output folders from choices. Their DAG names end in their index, so a regenerated
// folder packs to the same package.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace morvane::test {

/// Bytes that make choices, one after the other. After the last byte every choice is 0.
struct choices {
  std::string_view bytes;
  std::size_t next = 0;
};

/// A number below the limit, which is at most 256.
unsigned choose(choices& source, unsigned limit);

/// The files of a folder by their names: one to five DVIs with their headers. The headers contain
/// ports, variables and SMBs in any order, any numbers, comments, other text and any line ends. The
/// names are chosen so that no port's macros look like another's.
std::map<std::string, std::string> generate_folder(choices& source);

}  // namespace morvane::test

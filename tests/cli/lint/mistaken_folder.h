// Compiler output folders with mistakes, made from random numbers.
#pragma once

#include <map>
#include <random>
#include <string>

namespace morvane::test {

using random_numbers = std::mt19937_64;

/// What a folder is made of.
struct mistaken_folder {
  std::map<std::string, std::string> files;  // by their names
  std::string link{};                        // the name of a link, if any,
  std::string target{};                      // to nowhere or to a device
  std::string folder{};                      // the name of a folder, if any
};

/// One to three DAGs with ports, variables and SMB blocks. A clean folder has nothing that is read
/// in another way than it is meant; any other has one to eight mistakes in each header, and now and
/// then some in the names of its files.
mistaken_folder make_folder(random_numbers& random, bool is_clean);

}  // namespace morvane::test

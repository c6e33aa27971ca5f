// Finds the DVIs of the input folder and the header of each.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "format/input_entry.h"

namespace morvane {

/// The names of a folder's entries, in the order of the folder; none if the folder cannot be opened
/// and read to its end.
std::vector<std::string> list_folder(const std::string& folder);

/// Appends the folder's files of the wanted type, sorts the list by index and returns its length. A
/// file with a bad name is left out, with a message. Returns 0 if the folder cannot be opened. If
/// the greatest index does not match the number of files, prints "error: files in input folder are
/// disordered.", leaves the list unsorted and returns 0.
std::int32_t list_input_files(const std::string& folder, std::string_view wanted_type,
                              std::vector<input_entry>& files);

/// The header that belongs to a DVI, and whether the folder has it.
struct wanted_header {
  std::string name;
  bool is_missing;
};

/// The header of every DVI, in the order of the DVIs: "_" + stem + ".h" if every DVI has such a
/// header, otherwise stem + ".h".
std::vector<wanted_header> find_header_files(const std::string& folder,
                                             const std::vector<input_entry>& dvis);

/// Appends the header of every DVI, in the order of the DVIs. At the first missing header,
/// prints "error: can't find file ..." and stops. Returns the number of headers in the list.
std::int32_t pair_header_files(const std::string& folder, const std::vector<input_entry>& dvis,
                               std::vector<input_entry>& headers);

}  // namespace morvane

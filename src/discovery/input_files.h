// Finds the DVIs of the input folder and the header of each.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "format/input_entry.h"

namespace morvane {

/// Appends the folder's files of the wanted type, sorts the list by index and returns its length. A
/// file with a bad name is left out, with a message. Returns 0 if the folder cannot be opened. If
/// the greatest index does not match the number of files, prints "error: files in input folder are
/// disordered.", leaves the list unsorted and returns 0.
std::int32_t list_input_files(const std::string& folder, std::string_view wanted_type,
                              std::vector<input_entry>& files);

/// Appends the header of every DVI, in the order of the DVIs: "_" + stem + ".h" if every DVI has
/// such a header, otherwise stem + ".h". At the first missing header, prints "error: can't find
/// file ..." and stops. Returns the number of headers in the list.
std::int32_t pair_header_files(const std::string& folder, const std::vector<input_entry>& dvis,
                               std::vector<input_entry>& headers);

}  // namespace morvane

// Finds the DVIs of the input folder and the header that belongs to each.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "format/input_entry.h"

namespace morvane {

/// Appends the folder's files of the wanted type and sorts them by index. Returns their number.
/// Returns 0 when the folder cannot be opened, and, with the message "error: files in input folder
/// are disordered." and the list unsorted, when the greatest index does not suit the number of
/// files. A file with a bad name is left out, with its message.
std::int32_t list_input_files(const std::string& folder, std::string_view wanted_type,
                              std::vector<input_entry>& files);

/// Appends the header of every DVI, in the order of the DVIs: "_" + stem + ".h" when every DVI has
/// such a header, otherwise stem + ".h". Stops at the first that is missing, with the message
/// "error: can't find file ...". Returns the number of headers in the list.
std::int32_t pair_header_files(const std::string& folder, const std::vector<input_entry>& dvis,
                               std::vector<input_entry>& headers);

}  // namespace morvane

// Finds the DVIs of the input folder and the header of each.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "format/input_list.h"

namespace morvane {

/// Calls take for the name of every entry of a folder, in the order of the folder. Returns whether
/// the folder could be opened and read to its end; if not, what was taken does not count.
bool read_names(const std::string& folder, const std::function<void(std::string_view)>& take);

/// Whether a pack run that looks for files of the wanted type takes the file; sets its index.
/// Prints a message if only the name keeps it out.
bool is_input_file(std::string_view name, std::string_view wanted_type, std::int32_t& index);

/// Fills the list with the folder's files of the wanted type, sorts it by index and returns its
/// length. A file with a bad name is left out, with a message. Returns 0 if the folder cannot be
/// opened. If the greatest index does not match the number of files, prints "error: files in input
/// folder are disordered.", leaves the list unsorted and returns 0.
std::int32_t list_input_files(const std::string& folder, std::string_view wanted_type,
                              input_list& files);

/// Which headers a folder has for its DVIs, in the order of the DVIs.
struct header_presence {
  bool all_marked = true;      // each DVI has a header of its own with an underscore
  std::vector<bool> marked{};  // whether there is "_" + stem + ".h"
  std::vector<bool> plain{};   // whether there is stem + ".h"
};

header_presence find_headers(const std::string& folder, const input_list& dvis);

/// The name of a DVI's header: with an underscore if every DVI has such a header.
std::string header_of(const header_presence& headers, const input_entry& dvi);

/// Whether the folder has the header of the DVI at a position.
bool has_header(const header_presence& headers, std::size_t position);

/// Appends the header of every DVI, in the order of the DVIs. At the first missing header,
/// prints "error: can't find file ..." and stops. Returns the number of headers in the list.
std::int32_t pair_header_files(const std::string& folder, const input_list& dvis,
                               input_list& headers);

}  // namespace morvane

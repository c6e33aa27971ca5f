// Finds the DVIs of the input folder and the header of each.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "format/input_list.h"
#include "format/name_store.h"

namespace morvane {

/// The names of all entries of a folder, in the order of the folder; none, and an errno, if it
/// could not be opened or read to its end.
struct folder_names {
  name_store store{};
  std::vector<const char*> names{};
  int error = 0;
};
folder_names read_names(const std::string& folder);

/// Whether a pack run that looks for files of the wanted type takes the file; sets its index.
/// Prints a message if only the name keeps it out.
bool is_input_file(std::string_view name, std::string_view wanted_type, std::int32_t& index);

/// Fills the list with those of the names that are of the wanted type, sorted by index. A file with
/// a bad name is left out, with a message. Returns true; if the greatest index does not match the
/// number of files, prints "error: files in input folder are disordered.", leaves the list unsorted
/// and returns false.
bool order_input_files(const folder_names& folder, std::string_view wanted_type, input_list& files);

/// Fills the list in the same way with the files of a folder. Returns its length; 0 if the files
/// are disordered or the folder cannot be read.
std::int32_t list_input_files(const std::string& folder, std::string_view wanted_type,
                              input_list& files);

/// Which headers a folder has for its DVIs, in the order of the DVIs.
struct header_presence {
  bool all_marked = true;      // each DVI has a header of its own with an underscore
  std::vector<bool> marked{};  // whether there is "_" + stem + ".h"
  std::vector<bool> plain{};   // whether there is stem + ".h"
};

header_presence find_headers(const folder_names& folder, const input_list& dvis);

/// The name of a DVI's header: with an underscore if every DVI has such a header.
std::string header_of(const header_presence& headers, const input_entry& dvi);

/// Whether the folder has the header of the DVI at a position.
bool has_header(const header_presence& headers, std::size_t position);

/// Appends the header of every DVI, in the order of the DVIs. At the first missing header,
/// prints "error: can't find file ..." and stops. Returns the number of headers in the list.
std::int32_t pair_header_files(const std::string& folder, const input_list& dvis,
                               input_list& headers);

/// Returns 0 if all headers of the folder have different DAG names. At the first header that
/// repeats a name, prints "error: detection duplicate DAG NAME between file ..." and returns 1. A
/// header without a DAG name is ignored. A package with vproc records needs different names.
int check_duplicate_dag_names(const std::string& folder, const input_list& headers);

}  // namespace morvane

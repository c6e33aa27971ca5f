// The folder that an inspection writes to, and the files that it makes there.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "io/output_file.h"

namespace morvane {

/// An inspection changes nothing outside this folder, whatever the package contains. A name with a
/// "/" cannot be opened, and an existing file is removed, never written into.
struct parse_folder {
  std::string path;         // PARSEDIR/parse, for messages
  file_handle handle{};     // closed if the folder cannot be opened; then no file can be
  file_identity package{};  // the package under inspection, which is never replaced
  std::unordered_map<std::string_view, created_file> headers{};  // created so far, by DAG name
};

/// Creates PARSEDIR/parse, but no folder above it, for the inspection of a package.
parse_folder make_parse_folder(std::string_view parsedir, const file_identity& package);

/// Creates the image of a DAG. If it cannot be opened, prints "can't open file " and the path, and
/// returns a closed handle.
file_handle create_image(const parse_folder& folder, std::string_view dag_name);

/// Deletes the header of a DAG, if there is one, or an empty folder in its place.
void remove_header(const parse_folder& folder, std::string_view dag_name);

/// Appends lines to the header of a DAG. The first call for a name creates the header. The name
/// must live as long as the folder. Returns 0; or -1 with the message "can't open file " and the
/// path, if the header cannot be opened or is not the file that the previous call wrote.
int append_to_header(parse_folder& folder, std::string_view dag_name, std::string_view lines);

}  // namespace morvane

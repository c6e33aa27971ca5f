// The folder that an inspection writes to, and the files that it makes there.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "io/output_file.h"

namespace morvane {

/// Whatever a package says, an inspection touches nothing outside this folder: a name that holds a
/// "/" cannot be opened, and what stands in the place of a file is removed, never written into.
struct parse_folder {
  std::string path;         // PARSEDIR/parse, for messages
  file_handle handle{};     // closed when the folder cannot be opened, and then no file can
  file_identity package{};  // the package under inspection, which no file replaces
  std::unordered_map<std::string_view, created_file> headers{};  // made so far, by DAG name
};

/// Makes PARSEDIR/parse, and nothing above it, for the inspection of a package.
parse_folder make_parse_folder(std::string_view parsedir, const file_identity& package);

/// Creates the image of a DAG. When it cannot be opened prints "can't open file " and the path, and
/// the result is closed.
file_handle create_image(const parse_folder& folder, std::string_view dag_name);

/// Deletes what stands in the place of a DAG's header.
void remove_header(const parse_folder& folder, std::string_view dag_name);

/// Appends lines to the header of a DAG; the first call for a name creates it. The name must live
/// as long as the folder. Returns 0; or -1, with the message "can't open file " and the path, when
/// the header cannot be opened or is not the file that an earlier call left.
int append_to_header(parse_folder& folder, std::string_view dag_name, std::string_view lines);

}  // namespace morvane

// The folder that an inspection writes to, and the files that it makes there.
#pragma once

#include <string>
#include <string_view>

#include "io/file.h"

namespace morvane {

/// A file of the parse folder. Whatever a package says, an inspection touches nothing outside: a
/// name that holds a "/" is not in the folder and cannot be created, and a symbolic link that
/// stands in the file's place is not followed.
struct parsed_file {
  std::string path;
  bool in_folder = false;
};

/// The file of a name in the parse folder.
parsed_file file_in_folder(std::string_view folder, std::string_view name);

/// Creates PARSEDIR/parse, and nothing above it. Returns its path, also when it cannot be created.
std::string make_parse_folder(const std::string& parsedir);

/// Creates or empties a file of the parse folder. When it cannot be opened prints "can't open file
/// " and the path, and the result is closed; so below.
file_handle create_parsed_file(const parsed_file& file);

/// Opens a file of the parse folder to write at its end.
file_handle append_to_parsed_file(const parsed_file& file);

/// Deletes a file of the parse folder if it is there.
void remove_parsed_file(const parsed_file& file);

}  // namespace morvane

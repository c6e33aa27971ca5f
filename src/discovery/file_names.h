// What a file's name says: its type, its stem, and the index of the DVI.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace morvane {

/// The text after the last dot of a name, in lower case unless keep_case is set; empty without a
/// dot. A name of more than 127 characters is reported with the limit FILENAME and has no type.
std::string get_file_type(std::string_view name, bool keep_case);

/// The text before the last dot of a name; empty without a dot. Long names as above.
std::string_view get_file_stem(std::string_view name);

/// Reads the number between "_split_" and the extension; 0 for a name without "_split_". Returns 0;
/// or -1 with the message "error: can't match file type ..." or "error: filename format is
/// incorrect, ...".
int parse_file_index(std::string_view name, std::int32_t& index);

}  // namespace morvane

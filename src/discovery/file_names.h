// Reads the name of a file: its type, its stem and the index of the DVI.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace morvane {

/// Returns the text after the last dot of a name of any length, in lower case; empty without a dot.
std::string lower_case_type(std::string_view name);

/// Returns the text after the last dot of a name, in lower case unless keep_case is set; empty
/// without a dot. For a name of more than 127 bytes, reports the limit FILENAME and returns an
/// empty text.
std::string get_file_type(std::string_view name, bool keep_case);

/// Returns the text before the last dot of a name; empty without a dot. Reports long names as
/// above.
std::string_view get_file_stem(std::string_view name);

/// Sets index to the number that ends before the extension and begins after "_split_"; to 0 for a
/// name without "_split_". Returns 0; or prints "error: can't match file type ..." or "error:
/// filename format is incorrect, ..." and returns -1.
int parse_file_index(std::string_view name, std::int32_t& index);

}  // namespace morvane

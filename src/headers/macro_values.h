// Finds the values of macros on a line: NAME + suffix, for every suffix of a table.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "format/macros.h"

namespace morvane {

/// A line, a name, and the rest of the line after each occurrence of the name. They are found once
/// per line for all macros.
struct named_line {
  std::string_view line;
  std::string_view name;
  std::vector<std::string_view> rests;
};

/// Sets the line and finds the rests.
void set_line(named_line& named, std::string_view line);

/// Finds the first macro of the table with a value on the line, and stores the value in the record.
/// Returns 0, also if there is none. For a layer name that is too long, reports the limit
/// IO_DEMNGL_NAME and returns -1.
int store_macro(const named_line& named, std::span<const macro_row> macros,
                std::span<std::byte> record);

}  // namespace morvane

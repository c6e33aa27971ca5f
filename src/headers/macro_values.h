// The values of the macros of one name on a line: NAME + suffix, for every suffix of a table.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "format/macros.h"

namespace morvane {

/// A line and what follows a name wherever it stands on it. Found once a line, that serves every
/// macro.
struct named_line {
  std::string_view line;
  std::string_view name;
  std::vector<std::string_view> rests;
};

/// Sets the line and finds what follows the name on it.
void set_line(named_line& named, std::string_view line);

/// Finds the first macro of the table that has a value on the line and stores it in the record.
/// Returns 0, also when there is none; for a layer name that is too long reports the limit
/// IO_DEMNGL_NAME and returns -1.
int store_macro(const named_line& named, std::span<const macro_row> macros,
                std::span<std::byte> record);

}  // namespace morvane

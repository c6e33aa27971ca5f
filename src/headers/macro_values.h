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

/// A macro that has a value on a line, and the value, which lies on the line. The row is null if
/// there is none.
struct macro_match {
  const macro_row* row = nullptr;
  std::string_view value{};
};

/// Finds the first macro of the table with a value on the line.
macro_match find_macro(const named_line& named, std::span<const macro_row> macros);

/// Stores the value of a match, if there is one, in the record. Returns 0. For a layer name that is
/// too long, reports the limit IO_DEMNGL_NAME and returns -1.
int store_match(const macro_match& match, std::span<std::byte> record);

}  // namespace morvane

// Differences, for people and for programs.
#pragma once

#include <string>

#include "cli/diff/difference.h"
#include "cli/output/json_writer.h"

namespace morvane::cli {

/// A difference as a line: "DVI "net": input "data": W: 224 -> 256".
std::string difference_line(const difference& found);

/// Writes a difference as an element of an array.
void write_difference_object(json_writer& json, const difference& found);

}  // namespace morvane::cli

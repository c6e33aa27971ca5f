// The rules about the file indices, which make the order of the DVIs.
#pragma once

#include "cli/lint/folder_check.h"
#include "format/input_list.h"

namespace morvane::cli {

/// What all images with an index have before it: "net_split_". Empty if they differ, or if no image
/// has one. Lies in the list.
std::string_view common_stem(const input_list& dvis);

/// Tells which images have the same index, and which index is missing; the latter only if more are
/// missing than images were found that are no part of the list. Returns whether nothing was told.
bool check_order(const folder_check& check, const input_list& dvis, std::size_t left_out);

}  // namespace morvane::cli

// The rules about which file belongs to which: an image has one header, and a header one image.
#pragma once

#include "cli/lint/folder_check.h"
#include "cli/lint/folder_rules.h"

namespace morvane::cli {

/// Tells of the images that are certainly none, because they have no header and are no files, or
/// have the index of an image with a header: leftovers, copies, folders. Takes them out of the
/// reading. Returns how many of them were files.
std::size_t drop_leftovers(const folder_check& check, folder_reading& reading);

/// Tells which images have no header. Sets how the reading names headers: as most of them are
/// named. Returns whether nothing was told.
bool check_pairs(const folder_check& check, folder_reading& reading);

/// Tells of headers without an image whose names go on like those of the others.
void check_headers(const folder_check& check, const folder_reading& reading);

}  // namespace morvane::cli

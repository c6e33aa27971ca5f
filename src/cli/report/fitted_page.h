// A page that is not longer than its package allows.
#pragma once

#include "cli/report/html/page_output.h"
#include "cli/report/model/page_content.h"

namespace morvane::cli {

/// The most bytes of a page: 16 KiB, and 2 KiB for each DVI and port of the package, and of the
/// older package if there is one.
std::uint64_t max_page_bytes(const page_content& content);

/// Writes the page with all that has room on it. Of one that would get too long, every list shows
/// so many entries that the page fits; when even the empty lists do not help, the pictures leave
/// out the last DVIs.
void write_fitted_page(const page_content& content, page_output& out);

}  // namespace morvane::cli

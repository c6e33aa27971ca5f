// Whether a package holds the records that a header describes.
#pragma once

#include <morvane/package_view.h>

#include <cstdint>
#include <string_view>

namespace morvane::companion {

/// Reads a header's text once more and compares every record with those of its DVI in the package,
/// byte by byte. The index is that of the DVI's file. The vproc records are compared when the
/// package has some.
bool holds_records_of(const morvane_view& package, const morvane_view_dvi& dvi,
                      std::string_view header, std::int32_t index);

}  // namespace morvane::companion

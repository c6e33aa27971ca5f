// The digest of all records that a header describes.
#pragma once

#include <morvane/package_view.h>

#include <string>

namespace morvane::companion {

/// The digest of the records of a DVI in a package, in this order: the dvi_desc, its inputs and
/// outputs; and, if the package has vproc records, the vproc_desc, the variables and the SMBs.
std::string record_digest(const morvane_view& package, const morvane_view_dvi& dvi);

}  // namespace morvane::companion

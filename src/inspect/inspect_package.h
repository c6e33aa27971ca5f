// The inspection of a package: report, images and headers.
#pragma once

#include <string>

namespace morvane {

/// Reads a package, prints the report of its records, and writes every DVI's image and header to
/// the folder PARSEDIR/parse. Vproc records are read only if vproc is set. The content is not
/// checked: after the end of an incomplete package the report shows zeros. Returns 0; or -1 with
/// the message "can't open file ..." if the package cannot be opened.
int inspect_package(const std::string& path, const std::string& parsedir, bool vproc);

}  // namespace morvane

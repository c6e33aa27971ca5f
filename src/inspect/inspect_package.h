// The inspection of a package: report, images and headers.
#pragma once

#include <string>

namespace morvane {

/// Reads a package, prints the report of its records, and writes every DVI's image and header to
/// the folder PARSEDIR/parse; the vproc records only when vproc is set. Trusts the file: a package
/// that ends early is reported as far as it goes and zeros from there. Returns 0; or -1, with the
/// message "can't open file ...", when the package cannot be opened.
int inspect_package(const std::string& path, const std::string& parsedir, bool vproc);

}  // namespace morvane

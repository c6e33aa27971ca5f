// Writes a package from what the linter read.
#pragma once

#include <string>

#include "cli/lint/parsed_dvi.h"
#include "driver/pack_sections.h"

namespace morvane::cli {

/// Appends all sections of the package, as append_sections does, with records that were read
/// before; only the images are read. Returns the path of the image that could not be read as a
/// whole, empty if there is none. Prints nothing.
std::string append_parsed(package_writer& package, const pack_inputs& inputs,
                          const parsed_dvis& parsed, bool vproc);

}  // namespace morvane::cli

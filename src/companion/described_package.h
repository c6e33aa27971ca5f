// Writes a package from what the linter read.
#pragma once

#include "companion/described_dvi.h"
#include "driver/pack_sections.h"

namespace morvane::companion {

/// Appends all sections of the package, as append_sections does, with records that were read
/// before; only the images are read. Returns 0; or -1 after the message of what failed.
int append_described(package_writer& package, const pack_inputs& inputs,
                     const described_dvis& described, bool vproc);

}  // namespace morvane::companion

// Images that share addresses.
#pragma once

#include "cli/wiring/wiring_run.h"

namespace morvane::cli {

/// Adds the images that share addresses with another one: a warning, but a note for equal ranges,
/// which are loaded one after the other, and for images at address 0, which have no address.
void find_image_overlaps(wiring_run& run, bool with_notes);

}  // namespace morvane::cli

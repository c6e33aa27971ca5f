// Bytes that a port overwrites although they are still needed.
#pragma once

#include "cli/wiring/wiring_run.h"

namespace morvane::cli {

/// Adds the ports that share bytes with another one whose data a later DVI still reads. Data is in
/// its bytes from the DVI that writes it to the last one that reads it; what comes from outside,
/// from the first DVI that reads it. A DVI may write over what it is the last to read.
void find_overwritten_bytes(wiring_run& run);

}  // namespace morvane::cli

// An image of a package, written to a descriptor.
#pragma once

#include <cstdint>
#include <span>

#include "companion/held_signals.h"
#include "companion/opened_package.h"
#include "companion/progress.h"

namespace morvane::companion {

/// Writes an image part by part and gives back the memory of each. Returns 0 or an errno; EINTR
/// when it stopped because one of the held signals, if there are any, is waiting; EFAULT when the
/// package was cut meanwhile. That does not end with a signal, as the image is only handed to the
/// system.
int write_image(const opened_package& package, std::span<const std::uint8_t> image, int descriptor,
                const held_signals* signals, progress_line& progress);

}  // namespace morvane::companion

// An image of a package, written to a descriptor.
#pragma once

#include <cstdint>
#include <span>

#include "cli/files/blocked_signals.h"
#include "cli/output/progress.h"
#include "cli/package/opened_package.h"

namespace morvane::cli {

/// Writes an image part by part and gives back the memory of each. Returns 0 or an errno; EINTR
/// when it stopped because one of the held signals, if there are any, is waiting; EFAULT when the
/// package was cut meanwhile. Only the system reads the image, and where the bytes are gone its
/// calls return EFAULT: the program itself would get SIGBUS.
int write_image(const opened_package& package, std::span<const std::uint8_t> image, int descriptor,
                const blocked_signals* signals, progress_line& progress);

}  // namespace morvane::cli

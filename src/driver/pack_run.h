// The pack run: from the compiler's output folder to a package.
#pragma once

namespace morvane {

/// Packs the input folder into the package, prints its size and, if settings.verbose is set,
/// inspects it. Returns 0; or -1 after the message of what failed. A failed run leaves an
/// incomplete package.
int run_pack();

}  // namespace morvane

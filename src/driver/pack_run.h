// The pack run: from the compiler's output folder to a package.
#pragma once

namespace morvane {

/// Packs the folder that the settings name into the package that they name, says how large it is,
/// and inspects it when they ask for that. Returns 0; or -1 after the message of what failed, and
/// then leaves the package as far as it was written.
int run_pack();

}  // namespace morvane

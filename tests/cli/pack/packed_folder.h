// Packs folders and checks packages inside the test program.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace morvane::test {

/// Packs a folder as morvane_gen does, and prints nothing. Returns whether the run succeeds.
bool pack_folder(const std::string& folder, bool vproc, const std::string& package);

/// The bytes of a package that was read.
std::span<const std::uint8_t> bytes_of_package(const std::string& package);

/// Whether morvane check has no error for the content of a package.
bool is_sound(const std::string& package, bool vproc);

}  // namespace morvane::test

// All that is said about a compiler output folder before it is packed.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "companion/described_dvi.h"
#include "companion/findings.h"

namespace morvane::companion {

struct lint_scope {
  std::string folder;
  bool vproc = false;  // what a pack run with vproc records reads
  bool notes = false;
};

/// Is told how many DVIs of how many were read.
using dvi_progress = std::function<void(std::size_t done, std::size_t all)>;

/// Reads the folder as the pack run does and hands every finding to the sink: first those about the
/// folder and the names in it, then for each DVI those about its header, line by line, and those
/// about its image. Changes nothing. Returns 0, or the errno of a folder that cannot be read.
/// With a list of DVIs, appends what the headers describe, in the order of the package.
int lint_folder(const lint_scope& scope, const finding_sink& sink, const dvi_progress& progress,
                described_dvis* dvis);

}  // namespace morvane::companion

// All that is said about a compiler output folder before it is packed.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "cli/findings/findings.h"
#include "cli/lint/input_states.h"
#include "cli/lint/parsed_dvi.h"
#include "driver/pack_sections.h"

namespace morvane::cli {

struct lint_scope {
  std::string folder;
  bool vproc = false;  // what a pack run with vproc records reads
  bool notes = false;
};

/// What a pack run reads in a folder, and what the files are like before it reads them.
struct parsed_folder {
  pack_inputs inputs{};
  parsed_dvis dvis{};
  file_states before{};  // of every image, and of its header behind it
};

/// Is told how many DVIs of how many were read.
using dvi_progress = std::function<void(std::size_t done, std::size_t all)>;

/// Reads the folder as the pack run does and hands every finding to the sink: first those about the
/// folder and the names in it, then for each DVI those about its header, line by line, and those
/// about its image. Changes nothing. Returns 0, or the errno of a folder that cannot be read.
/// Fills the description, unless it is null; it is complete if no error is found.
int lint_folder(const lint_scope& scope, const finding_sink& sink, const dvi_progress& progress,
                parsed_folder* parsed);

}  // namespace morvane::cli

// Whether a package that was just written holds what its inputs hold, and is sound.
#pragma once

#include <string>

#include "cli/check/check_package.h"
#include "cli/findings/finding_output.h"
#include "cli/lint/parsed_dvi.h"
#include "cli/package/package_bytes.h"
#include "driver/pack_sections.h"

namespace morvane::cli {

/// How a package and its inputs compare.
struct input_comparison {
  bool are_same = false;
  std::string path{};  // of the input that could not be read
  int error = 0;       // and why, an errno
};

/// Compares every byte of the package with its inputs: the records with those that the linter read
/// in the headers, the images with their files, which are read once more; vproc tells whether vproc
/// records were written. Tells how far it came
/// often enough for a signal to end the run soon. Prints nothing.
input_comparison compare_with_inputs(const package_bytes& package, const pack_inputs& inputs,
                                     const parsed_dvis& parsed, bool vproc,
                                     const progress_sink& progress);

/// Whether the package is sound. Writes the errors that are found; the linter told the warnings.
/// Findings name the path; vproc tells whether vproc records were written. Sets the summary.
bool is_sound(const package_bytes& package, const std::string& path, bool vproc,
              finding_writer& output, package_summary& summary);

}  // namespace morvane::cli

// Whether a package that was just written holds what its inputs hold, and is sound.
#pragma once

#include <string>

#include "companion/check_package.h"
#include "companion/console.h"
#include "companion/package_bytes.h"
#include "driver/pack_sections.h"

namespace morvane::companion {

/// How a package and its inputs compare.
struct input_comparison {
  bool are_same = false;
  std::string path{};  // of the input that could not be read
  int error = 0;       // and why, an errno
};

/// Reads the inputs once more and compares every byte of the package with what they say: the
/// records with those of the headers, the images with their files. Prints nothing.
input_comparison compare_with_inputs(const package_bytes& package, const pack_inputs& inputs);

struct verdict_request {
  std::string package;  // the path that findings name
  bool vproc = false;   // whether vproc records were written
  bool warnings_are_errors = false;
};

/// Whether the package is sound. Writes the findings and sets the summary.
bool is_sound(const package_bytes& package, const verdict_request& request, console& streams,
              package_summary& summary);

}  // namespace morvane::companion

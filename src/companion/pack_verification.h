// Whether a package that was just written is sound, and holds what its inputs hold.
#pragma once

#include <string>

#include "companion/check_package.h"
#include "companion/console.h"
#include "driver/pack_sections.h"

namespace morvane::companion {

struct verification_request {
  std::string temporary;  // the path of the file that was written
  std::string package;    // the path that findings name
  std::string digest;     // of all bytes that were written
  bool vproc = false;     // whether vproc records were written
  bool warnings_are_errors = false;
};

/// Reads the file back: it has the bytes that were written, it is sound, and its records are those
/// of the headers, which are read once more. Writes the findings. Returns status_fine;
/// status_findings for a package that is not sound; status_failed, with a message, when the file or
/// a header says something else now. Sets the summary.
int verify(const verification_request& request, const pack_inputs& inputs, console& streams,
           package_summary& summary);

}  // namespace morvane::companion

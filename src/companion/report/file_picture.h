// The file from its first byte to its last one.
#pragma once

#include "companion/report/page_content.h"
#include "companion/report/page_output.h"

namespace morvane::companion {

/// Writes a bar of the file's parts, and a table of them.
void write_file(const page_content& content, page_output& out);

}  // namespace morvane::companion

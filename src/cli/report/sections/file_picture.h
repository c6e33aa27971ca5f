// The file from its first byte to its last one.
#pragma once

#include "cli/report/html/page_output.h"
#include "cli/report/model/page_content.h"

namespace morvane::cli {

/// Writes a bar of the file's parts, and a table of them.
void write_file(const page_content& content, page_output& out);

}  // namespace morvane::cli

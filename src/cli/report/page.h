// A page that shows a package: one file of HTML, without a script and without a request.
#pragma once

#include "cli/report/html/page_output.h"
#include "cli/report/model/page_content.h"

namespace morvane::cli {

/// Writes the whole page.
void write_page(const page_content& content, page_output& out);

}  // namespace morvane::cli

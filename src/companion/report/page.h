// A page that shows a package: one file of HTML, without a script and without a request.
#pragma once

#include "companion/report/page_content.h"
#include "companion/report/page_output.h"

namespace morvane::companion {

/// Writes the whole page.
void write_page(const page_content& content, page_output& out);

}  // namespace morvane::companion

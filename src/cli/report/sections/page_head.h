// The head of a page: what the package is, whether it is sound, and what changed.
#pragma once

#include "cli/report/html/page_output.h"
#include "cli/report/model/page_content.h"

namespace morvane::cli {

/// Writes name, verdict, numbers, the sentences that matter most, and the way to the sections.
void write_page_head(const page_content& content, page_output& out);

/// Writes the findings of the check.
void write_findings(const page_content& content, page_output& out);

/// Writes the differences from the older package.
void write_changes(const page_content& content, page_output& out);

}  // namespace morvane::cli

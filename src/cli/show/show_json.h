// A package as JSON, as docs/package.schema.json describes it.
#pragma once

#include "cli/output/console.h"
#include "cli/package/opened_package.h"

namespace morvane::cli {

/// Writes a package as JSON, record by record, on request with a digest of each image.
void show_json(const opened_package& package, bool with_digests, console& streams);

}  // namespace morvane::cli

// A package as tables, for people, and as JSON, as docs/package.schema.json describes it.
#pragma once

#include "cli/output/console.h"
#include "cli/package/opened_package.h"

namespace morvane::cli {

/// Writes a line about the package and the tables of each DVI, on request with a digest of its
/// image.
void show_tables(const opened_package& package, bool with_digests, console& streams);

/// Writes a package as JSON, record by record, on request with a digest of each image.
void show_json(const opened_package& package, bool with_digests, console& streams);

}  // namespace morvane::cli

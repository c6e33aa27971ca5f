// A package as tables, for people, as JSON, as docs/package.schema.json describes it, and its ports
// as comma-separated values.
#pragma once

#include "cli/package/opened_package.h"
#include "cli/show/show_command.h"

namespace morvane::cli {

/// Writes a line about the package and the tables of each DVI that is wanted, on request with a
/// digest of its image; at the end what the data formats mean.
void show_tables(const opened_package& package, const show_options& options, console& streams);

/// Writes a package as JSON, record by record: the DVIs that are wanted, with digests or without.
void show_json(const opened_package& package, const show_options& options, console& streams);

/// Writes a row of names, and a row for each port of the DVIs that are wanted: where it belongs,
/// and the fields that the JSON has too. Names are printable; those with a comma or a quote are in
/// quotes, as RFC 4180 has it.
void show_csv(const opened_package& package, const show_options& options, console& streams);

}  // namespace morvane::cli

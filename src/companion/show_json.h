// A package as JSON, as docs/package.schema.json describes it.
#pragma once

#include "companion/console.h"
#include "companion/shown_package.h"

namespace morvane::companion {

/// Writes a package as JSON, record by record.
void show_json(const shown_package& shown, console& streams);

}  // namespace morvane::companion

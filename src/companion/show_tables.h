// A package as tables, for people.
#pragma once

#include "companion/console.h"
#include "companion/shown_package.h"

namespace morvane::companion {

/// Writes a line about the package and the tables of each DVI.
void show_tables(const shown_package& shown, console& streams);

}  // namespace morvane::companion

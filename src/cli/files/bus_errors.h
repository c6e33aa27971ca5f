// What happens when a mapped file cannot be read any more.
#pragma once

namespace morvane::cli {

/// From here on, a mapped file that somebody cuts, or whose disk fails, ends the program with
/// status_failed and a message, and without its temporary files.
void end_at_bus_errors();

}  // namespace morvane::cli

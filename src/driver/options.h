// Reads the command line into the settings.
#pragma once

#include "driver/settings.h"

namespace morvane {

/// Sets the settings from the options. Returns 0; 1 for a name of more than 2048 characters, with
/// its message "error: ... exceed 2048"; -1 for anything that getopt_long does not know, with the
/// message "morvane_gen: unknown switch". Options after an error are ignored.
int parse_options(int argc, char** argv);

}  // namespace morvane

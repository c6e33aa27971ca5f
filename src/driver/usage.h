// The texts that explain the tool.
#pragma once

namespace morvane {

/// Prints the usage text.
void print_usage();

/// Prints the line "version 2.1.6 ( HASH b3b3814 )". Returns 0.
int print_version();

}  // namespace morvane

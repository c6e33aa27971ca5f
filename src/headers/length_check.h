// Reports texts that are longer than their limits.
#pragma once

#include <string_view>

#include "format/length_limits.h"

namespace morvane {

/// Prints the message "error: please increase length limit of MACRO [limit name] for string ..."
/// with the text and its length. Returns -1.
int report_length_limit(std::string_view text, std::string_view limit_name);

/// Returns 0 if the text is not longer than the limit; otherwise reports it and returns -1.
int check_length_limit(std::string_view text, const length_limit& limit);

}  // namespace morvane

// Reports texts that are longer than their limits.
#pragma once

#include <string_view>

#include "format/length_limits.h"

namespace morvane {

/// Returns 0 if the text is not longer than the limit. Otherwise prints "error: please increase
/// length limit of MACRO [limit name] for string ..." with the text and its length, and returns -1.
int check_length_limit(std::string_view text, const length_limit& limit);

}  // namespace morvane

// The words of docs/findings.md, which is a part of the program.
#pragma once

#include <string>
#include <string_view>

namespace morvane::cli {

/// What a code means, an example, and what to do, as text for a terminal. The words between have
/// lines of at most 80 columns; examples are as long as they are.
std::string explanation_of(std::string_view code);

}  // namespace morvane::cli

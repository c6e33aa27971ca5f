// The document of the findings, as text of the program.
#pragma once

#include <string_view>

namespace morvane::cli {

/// All of docs/findings.md.
extern const std::string_view findings_page;

}  // namespace morvane::cli

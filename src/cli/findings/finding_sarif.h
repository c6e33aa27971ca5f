// Findings as SARIF 2.1.0, which review tools show beside the files.
#pragma once

#include <string>
#include <string_view>

#include "cli/findings/finding_formats.h"

namespace morvane::cli {

/// A path as a URI reference: "a%20b/net.bin", "file:///net.bin".
std::string uri_of(std::string_view path);

/// Begins the document and its list of results.
void begin_sarif(finding_report& report);

void write_sarif_result(finding_report& report, const finding& found);

/// Keeps what the end of the document tells: why a file could not be read.
void keep_sarif_failure(finding_report& report, std::string_view path, std::string_view reason);

void end_sarif(finding_report& report);

}  // namespace morvane::cli

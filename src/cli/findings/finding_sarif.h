// Findings as SARIF 2.1.0, which review tools show beside the files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/findings/findings.h"
#include "cli/output/json_writer.h"

namespace morvane::cli {

/// A path as a URI reference: "a%20b/net.bin", "file:///net.bin".
std::string uri_of(std::string_view path);

/// Begins the document and its list of results.
void begin_sarif(json_writer& json);

void write_sarif_result(json_writer& json, const finding& found);

/// Ends the document. The failures are what kept the program from reading files, if anything.
void end_sarif(json_writer& json, const std::vector<std::string>& failures);

}  // namespace morvane::cli

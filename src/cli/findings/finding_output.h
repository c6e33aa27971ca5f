// Findings as lines for people and as JSON.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "cli/findings/findings.h"
#include "cli/output/console.h"
#include "cli/output/json_writer.h"

namespace morvane::cli {

/// How findings are written.
enum class finding_format { text, json, sarif };

/// The format of a name: "text", "json" or "sarif".
std::optional<finding_format> finding_format_named(std::string_view name);

/// How many findings of each severity there were, and how many were files that cannot be read.
struct finding_counts {
  std::uint64_t errors = 0;
  std::uint64_t warnings = 0;
  std::uint64_t notes = 0;
  std::uint64_t unreadable = 0;
};

/// Counts a finding.
void count(const finding& found, finding_counts& counts);

/// The exit status of a command that found this.
int status_of(const finding_counts& counts, bool warnings_are_errors);

/// A finding as a line for people: "net.bin:0x1f4: error: the DVI table is cut [dvi-table-cut]".
std::string finding_line(const finding& found, bool colour);

/// Writes a finding as a result; one that is not an error only when the user did not ask for quiet.
void write_finding_line(console& streams, const finding& found);

/// Writes a finding as an element of an array.
void write_finding_object(json_writer& json, const finding& found);

}  // namespace morvane::cli

// Findings as lines for people, as JSON and as SARIF.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

/// "2 errors, 1 warning"; notes are counted on request.
std::string counts_text(const finding_counts& counts, bool with_notes);

/// A finding as a line for people: "net.bin:0x1f4: error: the DVI table is cut [dvi-table-cut]".
std::string finding_line(const finding& found, bool colour);

/// Where findings go, how they are written, and what they amount to.
struct finding_writer {
  json_writer json;
  finding_format format = finding_format::text;
  finding_counts counts{};              // since begin_findings
  std::vector<std::string> failures{};  // what SARIF tells at its end
};

/// Opens the document, if the format has one.
void begin_output(finding_writer& output);

/// Where a command writes what only JSON says besides the findings; null in other formats.
json_writer* json_of(finding_writer& output);

/// Opens the list of findings, and counts from 0.
void begin_findings(finding_writer& output);

/// Counts a finding and writes it. As a line, one that is not an error is only written when the
/// user did not ask for quiet.
void write_finding(finding_writer& output, const finding& found);

void end_findings(finding_writer& output);

/// Writes that the system did not let the program read a package or folder, in JSON and in SARIF.
void write_failure(finding_writer& output, std::string_view path, int error);

/// Closes the document.
void end_output(finding_writer& output);

}  // namespace morvane::cli

// The findings of morvane lint, in every format.
#pragma once

#include <string>

#include "cli/findings/finding_output.h"
#include "cli/lint/lint_folder.h"
#include "cli/output/console.h"
#include "cli/output/json_writer.h"

namespace morvane::cli {

/// What is written to, and how.
struct lint_output {
  finding_format format = finding_format::text;
  const lint_scope& scope;
  json_writer json;
};

lint_output begin_lint(console& streams, finding_format format, const lint_scope& scope);
void write_finding(lint_output& output, const finding& found);

/// Ends the output. The counts are told on standard error.
void end_lint(lint_output& output, const finding_counts& counts);

/// Ends the output of a folder that the system did not let the program read. Returns
/// status_failed.
int end_failed_lint(lint_output& output, int error);

/// "2 errors, 1 warning"; notes are counted on request.
std::string counts_text(const finding_counts& counts, bool with_notes);

}  // namespace morvane::cli

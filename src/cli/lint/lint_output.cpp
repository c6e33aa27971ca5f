#include "cli/lint/lint_output.h"

#include <cstring>

#include "cli/findings/finding_sarif.h"
#include "cli/output/printable_text.h"

namespace morvane::cli {

lint_output begin_lint(console& streams, finding_format format, const lint_scope& scope) {
  lint_output output{.format = format, .scope = scope, .json = {.streams = streams}};
  if (format == finding_format::json) {
    begin_object(output.json);
    write_member(output.json, "folder", scope.folder);
    begin_array(output.json, "findings");
  } else if (format == finding_format::sarif) {
    begin_sarif(output.json);
  }
  return output;
}

void write_finding(lint_output& output, const finding& found) {
  switch (output.format) {
    case finding_format::json:
      return write_finding_object(output.json, found);
    case finding_format::sarif:
      return write_sarif_result(output.json, found);
    default:
      return write_finding_line(output.json.streams, found);
  }
}

void end_lint(lint_output& output, const finding_counts& counts) {
  json_writer& json = output.json;
  if (output.format == finding_format::json) {
    end_array(json);
    write_member(json, "errors", counts.errors);
    write_member(json, "warnings", counts.warnings);
    write_member(json, "notes", counts.notes);
    end_object(json);
    end_document(json);
  } else if (output.format == finding_format::sarif) {
    end_sarif(json, {});
  }
  flush_results(json.streams);
  if (!json.streams.quiet) {
    print_message(
        joined(printable(output.scope.folder), ": ", counts_text(counts, output.scope.notes)));
  }
}

int end_failed_lint(lint_output& output, int error) {
  json_writer& json = output.json;
  // NOLINTNEXTLINE(concurrency-mt-unsafe): one thread
  const std::string reason = std::strerror(error);
  if (output.format == finding_format::json) {
    end_array(json);
    write_member(json, "failure", reason);
    end_object(json);
    end_document(json);
  } else if (output.format == finding_format::sarif) {
    end_sarif(json, {joined(output.scope.folder, ": ", reason)});
  }
  flush_results(json.streams);
  return report_file_error(output.scope.folder, error);
}

std::string counts_text(const finding_counts& counts, bool with_notes) {
  std::string text =
      joined(count_of(counts.errors, "error"), ", ", count_of(counts.warnings, "warning"));
  return with_notes ? joined(text, ", ", count_of(counts.notes, "note")) : text;
}

}  // namespace morvane::cli

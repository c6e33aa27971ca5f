#include "cli/lint/lint_command.h"

#include <algorithm>

#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

void write_counts(finding_writer& output) {
  if (json_writer* json = json_of(output)) {
    write_member(*json, "errors", output.counts.errors);
    write_member(*json, "warnings", output.counts.warnings);
    write_member(*json, "notes", output.counts.notes);
  }
}

/// Ends the output of a folder that was read. The counts are told on standard error. Returns the
/// exit status.
int end_lint(finding_writer& output, const lint_options& options) {
  console& streams = output.json.streams;
  write_counts(output);
  end_output(output);
  flush_results(streams);
  if (!streams.quiet) {
    print_message(joined(printable(options.scope.folder), ": ",
                         counts_text(output.counts, options.scope.notes)));
  }
  return status_of(output.counts, options.warnings_are_errors);
}

/// Ends the output of a folder that the system did not let the program read. Returns
/// status_failed.
int end_failed_lint(finding_writer& output, const std::string& folder, int error) {
  write_failure(output, folder, error);
  end_output(output);
  flush_results(output.json.streams);
  return report_file_error(folder, error);
}

/// What the user does not want to see. A file that cannot be read is told in any case: nobody knows
/// what was not found in it.
bool is_left_out(const finding& found, const lint_options& options) {
  const bool is_hidden = level_of(found) == severity::note && !options.scope.notes;
  const bool is_ignored =
      std::ranges::find(options.ignored, found.kind->code) != options.ignored.end();
  return is_hidden || (is_ignored && found.kind != kind_of("unreadable-file"));
}

}  // namespace

int run_lint(const lint_options& options, console& streams) {
  const std::string& folder = options.scope.folder;
  streams.warnings_are_errors = options.warnings_are_errors;
  finding_writer output{.json = {.streams = streams}, .format = options.format};
  begin_output(output);
  if (json_writer* json = json_of(output)) {
    write_member(*json, "folder", folder);
  }
  begin_findings(output);
  progress_line& progress = streams.progress;
  progress = begin_progress(folder, 0, streams.quiet, progress_unit::dvis);
  const auto take = [&](const finding& found) {
    if (!is_left_out(found, options)) {
      write_finding(output, found);
    }
  };
  const int error = lint_folder(
      options.scope, take,
      [&](std::size_t done, std::size_t all) {
        progress.total = all;
        show_progress(progress, done);
      },
      nullptr);
  hide_progress(progress);
  end_findings(output);
  return error == 0 ? end_lint(output, options) : end_failed_lint(output, folder, error);
}

}  // namespace morvane::cli

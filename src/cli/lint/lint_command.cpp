#include "cli/lint/lint_command.h"

#include "cli/lint/input_states.h"
#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

/// Ends the output of a folder that was read, unless that ended with an errno. The counts, or the
/// reason, are told on standard error. Returns the exit status.
int end_lint(finding_writer& output, const lint_options& options, int error) {
  const finding_counts& counts = output.counts;
  const std::string& folder = options.scope.folder;
  end_findings(output, folder, error);
  const int found = status_of(counts, options.findings.warnings_are_errors);
  const int status = end_output(output, error == 0 ? found : status_failed);
  if (error != 0) {
    return report_file_error(folder, error);
  }
  if (!output.streams.quiet) {
    print_message(joined(printable(folder), ": ", counts_text(counts, options.scope.notes)));
  }
  write_next_step(output, joined("morvane pack ", printable(folder), " -o FILE"));
  return status;
}

}  // namespace

int run_lint(const lint_options& options, console& streams) {
  const std::string& folder = options.scope.folder;
  finding_writer output(streams, options.findings);
  const auto is_input = [&](const atomic_replacement& file) { return is_in_folder(folder, file); };
  if (const int status = begin_output(output, is_input); status != status_fine) {
    return status;
  }
  write_json(output, [&](json_writer& json) { write_member(json, "folder", folder); });
  begin_findings(output, folder);
  progress_line& progress = streams.progress;
  progress = begin_progress(folder, 0, streams.quiet, progress_unit::dvis);
  const auto take = [&](const finding& found) {
    if (level_of(found) != severity::note || options.scope.notes) {
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
  if (error == 0 && output.counts.unreadable == 0) {
    write_stale_entries(output, options.scope.notes);
  }
  return end_lint(output, options, error);
}

}  // namespace morvane::cli

#include "cli/lint/lint_command.h"

#include <algorithm>
#include <cstring>

#include "cli/lint/lint_output.h"

namespace morvane::cli {

int run_lint(const lint_options& options, console& streams) {
  streams.warnings_are_errors = options.warnings_are_errors;
  lint_output output = begin_lint(streams, options.format, options.scope);
  finding_counts counts;
  progress_line& progress = streams.progress;
  progress = begin_progress(options.scope.folder, 0, streams.quiet, progress_unit::dvis);
  const auto take = [&](const finding& found) {
    const bool is_hidden = level_of(found) == severity::note && !options.scope.notes;
    if (!is_hidden &&
        std::ranges::find(options.ignored, found.kind->code) == options.ignored.end()) {
      count(found, counts);
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
  if (error != 0) {
    return end_failed_lint(output, error);
  }
  end_lint(output, counts);
  return status_of(counts, options.warnings_are_errors);
}

}  // namespace morvane::cli

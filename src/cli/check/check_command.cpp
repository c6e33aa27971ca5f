#include "cli/check/check_command.h"

#include <algorithm>

#include "cli/check/check_output.h"
#include "cli/package/package_bytes.h"

namespace morvane::cli {

namespace {

/// Returns the exit status for one package.
int check_one(const std::string& path, const check_options& options, check_output& output) {
  package_bytes package;
  const int error = package.load(path);
  if (error != 0) {
    write_open_failure(output, path, error);
    return status_failed;
  }
  begin_package(output, path);
  finding_counts counts;
  progress_line& progress = output.json.streams.progress;
  progress = begin_progress(path, package.bytes().size(), output.json.streams.quiet);
  const package_summary summary = check_package(
      package.bytes(), options.scope,
      [&](finding found) {
        found.file = path;
        count(found, counts);
        write_finding(output, found);
      },
      [&](std::uint64_t done) { show_progress(progress, done); });
  hide_progress(progress);
  const int status = status_of(counts, options.warnings_are_errors);
  end_package(output, path, summary, status == status_fine);
  return status;
}

}  // namespace

int run_check(const check_options& options, console& streams) {
  streams.warnings_are_errors = options.warnings_are_errors;
  check_output output = begin_check(streams, options.format);
  int status = status_fine;
  for (const std::string& path : options.packages) {
    status = std::max(status, check_one(path, options, output));
  }
  end_check(output);
  return status;
}

}  // namespace morvane::cli

#include "cli/check/check_command.h"

#include <algorithm>

#include "cli/check/verdict.h"
#include "cli/package/opened_package.h"

namespace morvane::cli {

namespace {

void write_summary(finding_writer& output, std::string_view path, const package_summary& summary,
                   bool is_sound) {
  if (json_writer* json = json_of(output)) {
    write_member(*json, "sound", is_sound);
    write_member(*json, "dvis", summary.dvis);
    write_member(*json, "ports", summary.ports);
    write_member(*json, "vproc", summary.has_vproc);
    write_member(*json, "bytes", summary.bytes);
  } else if (output.format == finding_format::text && is_sound && !output.json.streams.quiet) {
    print_result(output.json.streams, verdict_line(path, "sound", summary));
  }
}

/// Writes what is found in a package, and the verdict. Returns the exit status.
int check_opened(const opened_package& package, const check_options& options,
                 finding_writer& output) {
  begin_findings(output);
  progress_line& progress = output.json.streams.progress;
  progress = begin_progress(package.path, package.view.size, output.json.streams.quiet);
  const package_summary summary = check_package(
      package.view, package.damage, options.scope,
      [&](finding found) {
        found.file = package.path;
        write_finding(output, found);
      },
      [&](std::uint64_t done) { show_progress(progress, done); });
  hide_progress(progress);
  end_findings(output);
  const int status = status_of(output.counts, options.warnings_are_errors);
  write_summary(output, package.path, summary, status == status_fine);
  return status;
}

/// Returns the exit status for one package.
int check_one(const std::string& path, const check_options& options, finding_writer& output) {
  opened_package package;
  const int error = open_package(path, package);
  if (error != 0) {
    flush_results(output.json.streams);
    report_file_error(path, error);
  }
  json_writer* json = json_of(output);
  if (json != nullptr) {
    begin_object(*json);
    write_member(*json, "file", path);
  }
  int status = status_failed;
  if (error == 0) {
    status = check_opened(package, options, output);
  } else {
    write_failure(output, path, error);
  }
  if (json != nullptr) {
    end_object(*json);
  }
  return status;
}

}  // namespace

int run_check(const check_options& options, console& streams) {
  streams.warnings_are_errors = options.warnings_are_errors;
  finding_writer output{.json = {.streams = streams}, .format = options.format};
  begin_output(output);
  json_writer* json = json_of(output);
  if (json != nullptr) {
    begin_array(*json, "packages");
  }
  int status = status_fine;
  for (const std::string& path : options.packages) {
    status = std::max(status, check_one(path, options, output));
  }
  if (json != nullptr) {
    end_array(*json);
  }
  end_output(output);
  return status;
}

}  // namespace morvane::cli

#include "cli/check/check_command.h"

#include <algorithm>

#include "cli/check/verdict.h"
#include "cli/files/atomic_replacement.h"
#include "cli/output/printable_text.h"
#include "cli/package/opened_package.h"
#include "io/file.h"

namespace morvane::cli {

namespace {

/// Packages on their way to a verdict.
struct checking {
  const check_options& options;
  finding_writer& output;
  int status = status_fine;  // the greatest of those of the packages
};

void write_summary(finding_writer& output, std::string_view path, const package_summary& summary,
                   bool is_sound) {
  write_json(output, [&](json_writer& json) {
    write_member(json, "sound", is_sound);
    write_member(json, "dvis", summary.dvis);
    write_member(json, "ports", summary.ports);
    write_member(json, "vproc", summary.has_vproc);
    write_member(json, "bytes", summary.bytes);
  });
  if (is_sound) {
    write_text(output, verdict_line(path, "sound" + accepted_text(output.counts), summary));
  }
}

/// Writes what is found in a package, and the verdict. The last package also has what none had.
void check_opened(checking& run, const std::string& path, const opened_package& package) {
  finding_writer& output = run.output;
  begin_findings(output, folder_of(path));
  progress_line& progress = output.streams.progress;
  progress = begin_progress(path, package.view.size, output.streams.quiet);
  const package_summary summary = check_package(
      package.view, package.damage, run.options.scope,
      [&](finding found) {
        found.file = package.path;
        write_finding(output, found);
      },
      [&](std::uint64_t done) { show_progress(progress, done); });
  hide_progress(progress);
  if (&path == &run.options.packages.back() && run.status != status_failed) {
    write_stale_entries(output, run.options.scope.notes);
  }
  end_findings(output);
  const int status = status_of(output.counts, run.options.findings.warnings_are_errors);
  write_summary(output, path, summary, status == status_fine);
  run.status = std::max(run.status, status);
}

void check_one(checking& run, const std::string& path) {
  opened_package package;
  const int error = open_package(path, package);
  if (error != 0) {
    flush_results(run.output.streams);
    run.status = report_file_error(path, error);
  }
  write_json(run.output, [&](json_writer& json) {
    begin_object(json);
    write_member(json, "file", path);
  });
  if (error == 0) {
    check_opened(run, path, package);
  } else {
    write_failure(run.output, path, error);
  }
  write_json(run.output, [](json_writer& json) { end_object(json); });
}

}  // namespace

int run_check(const check_options& options, console& streams) {
  finding_writer output(streams, options.findings);
  const auto is_input = [&](const atomic_replacement& file) {
    return file.replaced() && std::ranges::any_of(options.packages, [&](const std::string& path) {
             return identity_at(path) == file.replaced();
           });
  };
  if (const int status = begin_output(output, is_input); status != status_fine) {
    return status;
  }
  checking run{options, output};
  write_json(output, [](json_writer& json) { begin_array(json, "packages"); });
  for (const std::string& path : options.packages) {
    check_one(run, path);
  }
  write_json(output, [](json_writer& json) { end_array(json); });
  const int status = end_output(output, run.status);
  write_next_step(output,
                  joined("morvane report ", printable(options.packages.back()), " -o FILE"));
  return status;
}

}  // namespace morvane::cli

#include "companion/pack_command.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string_view>
#include <vector>

#include "companion/depfile.h"
#include "companion/described_package.h"
#include "companion/finding_output.h"
#include "companion/held_signals.h"
#include "companion/input_states.h"
#include "companion/lint/lint_folder.h"
#include "companion/lint/lint_output.h"
#include "companion/pack_verification.h"
#include "companion/printable_text.h"
#include "companion/replacement_file.h"
#include "companion/verdict.h"
#include "driver/pack_sections.h"

namespace morvane::companion {

namespace {

/// Ends a pack run early, so that a signal can end the program.
struct interruption {};

/// A pack run on its way.
struct packing {
  packing(const pack_options& chosen, console& output) : options(chosen), streams(output) {}

  const pack_options& options;
  console& streams;
  held_signals signals{};            // until the temporary file is gone
  described_folder described{};      // what the linter read
  std::vector<std::string> paths{};  // of the inputs
  replacement_file package{};
  package_summary summary{};
};

void check_signals(const packing& run) {
  if (run.signals.is_waiting()) {
    throw interruption();
  }
}

int report_changed(std::string_view path) {
  print_message(joined(printable(path), ": was changed while it was packed"));
  return status_failed;
}

/// Ends a run after what it found.
int report_unpacked(packing& run, const finding_counts& counts) {
  flush_results(run.streams);
  print_message(joined(printable(run.options.folder), ": ", counts_text(counts, false),
                       ": nothing is packed"));
  return status_of(counts, run.options.warnings_are_errors);
}

/// An image that the linter could open, and that cannot be read as a whole now.
int report_lost_image(packing& run, const std::string& path, int error) {
  if (error == 0) {
    return report_changed(path);
  }
  const finding found{.kind = kind_of("unreadable-file"),
                      .file = path,
                      .place = whole_file,
                      .text = unreadable_text("file", error)};
  finding_counts counts;
  count(found, counts);
  write_finding_line(run.streams, found);
  return report_unpacked(run, counts);
}

/// Writes what the linter finds. With errors nothing is packed.
int lint_inputs(packing& run) {
  finding_counts counts;
  const auto take = [&](const finding& found) {
    count(found, counts);
    write_finding_line(run.streams, found);
  };
  const lint_scope scope{.folder = run.options.folder, .vproc = run.options.vproc};
  const int error = lint_folder(
      scope, take, [&](std::size_t /*done*/, std::size_t /*all*/) { check_signals(run); },
      &run.described);
  if (error != 0) {
    return report_file_error(run.options.folder, error);
  }
  if (status_of(counts, run.options.warnings_are_errors) != status_fine) {
    return report_unpacked(run, counts);
  }
  run.paths = input_paths(run.described.inputs);
  return status_fine;
}

/// Whether a path leads to one of the inputs, under whatever name.
bool is_packed_file(const packing& run, const std::string& path) {
  const auto existing = identity_at(path);
  const file_states& inputs = run.described.before;
  return existing && std::ranges::find(inputs, *existing, &file_state::identity) != inputs.end();
}

/// Whether two paths name the same file, which may not exist yet.
bool is_same_file(const std::string& one, const std::string& other) {
  namespace fs = std::filesystem;
  const auto existing = identity_at(one);
  return fs::path(one).lexically_normal() == fs::path(other).lexically_normal() ||
         (existing && existing == identity_at(other));
}

/// No output may take the place of an input or of the other output.
int check_outputs(packing& run) {
  for (const std::string& path : {run.options.package, run.options.depfile}) {
    if (is_packed_file(run, path)) {
      print_message(joined(printable(path), ": is one of the files to pack"));
      return status_failed;
    }
  }
  if (is_same_file(run.options.package, run.options.depfile)) {
    print_message(
        joined(printable(run.options.depfile), ": the dependency file cannot be the package"));
    return status_failed;
  }
  return status_fine;
}

int create_package(packing& run) {
  const int error = run.package.create(run.options.package);
  return error == 0 ? status_fine : report_file_error(run.options.package, error);
}

/// Is told how much of the package is written.
void see_progress(void* state, std::uint64_t written) {
  auto& run = *static_cast<packing*>(state);
  check_signals(run);
  show_progress(run.streams.progress, written);
}

/// About as many bytes as the package will have: those of the inputs.
std::uint64_t expected_size(const packing& run) {
  std::uint64_t size = 0;
  for (const file_state& state : run.described.before) {
    size += static_cast<std::uint64_t>(state.size);
  }
  return size;
}

int write_package(packing& run) {
  package_writer writer{.file = file_handle(::dup(run.package.descriptor())),
                        .watch = {.tell = see_progress, .state = &run}};
  run.streams.progress = begin_progress(run.options.package, expected_size(run), run.streams.quiet);
  const std::string lost =
      append_described(writer, run.described.inputs, run.described.dvis, run.options.vproc);
  flush_package(writer);
  hide_progress(run.streams.progress);
  if (writer.write_error != 0) {
    return report_file_error(run.options.package, writer.write_error);
  }
  if (!lost.empty()) {
    return report_lost_image(run, lost, writer.read_error);
  }
  const int error = run.options.sync ? sync_file(run.package.descriptor()) : 0;
  return error == 0 ? status_fine : report_file_error(run.options.package, error);
}

int verify_package(packing& run) {
  package_bytes package;
  if (const int error = package.load(run.package.path()); error != 0) {
    return report_file_error(run.options.package, error);
  }
  const input_comparison comparison =
      compare_with_inputs(package, run.described.inputs, run.described.dvis);
  if (comparison.error != 0) {
    return report_lost_image(run, comparison.path, comparison.error);
  }
  const std::string changed = changed_file(run.paths, run.described.before);
  if (!changed.empty()) {
    return report_changed(changed);
  }
  if (!is_sound(package, run.options.package, run.options.vproc, run.streams, run.summary)) {
    return status_findings;
  }
  if (!comparison.are_same) {
    print_message(joined(printable(run.options.package),
                         ": the new package does not hold what was written to it"));
    return status_failed;
  }
  check_signals(run);
  return status_fine;
}

int write_depfile(const packing& run) {
  if (run.options.depfile.empty()) {
    return status_fine;
  }
  const std::string text = depfile_text(run.options.package, run.paths);
  if (text.empty()) {
    print_message(joined(printable(run.options.depfile),
                         ": a dependency file cannot hold a path with a line break"));
    return status_failed;
  }
  const int error = replace_file(run.options.depfile, text);
  return error == 0 ? status_fine : report_file_error(run.options.depfile, error);
}

int put_in_place(packing& run) {
  const int error = run.package.put_in_place(run.options.sync);
  if (error != 0) {
    return report_file_error(run.options.package, error);
  }
  if (!run.streams.quiet) {
    print_result(run.streams, verdict_line(run.options.package, "packed", run.summary));
  }
  return status_fine;
}

}  // namespace

int run_pack(const pack_options& options, console& streams) try {
  streams.warnings_are_errors = options.warnings_are_errors;
  packing run(options, streams);
  for (const auto step :
       {lint_inputs, check_outputs, create_package, write_package, verify_package}) {
    if (const int status = step(run); status != status_fine) {
      return status;
    }
  }
  const int status = write_depfile(run);
  return status == status_fine ? put_in_place(run) : status;
} catch (const interruption&) {
  return status_failed;  // for a signal that does not end the program
}

}  // namespace morvane::companion

#include "cli/pack/pack_command.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string_view>
#include <system_error>
#include <vector>

#include "cli/check/verdict.h"
#include "cli/files/blocked_signals.h"
#include "cli/findings/finding_output.h"
#include "cli/lint/input_states.h"
#include "cli/lint/lint_folder.h"
#include "cli/output/printable_text.h"
#include "cli/pack/depfile.h"
#include "cli/pack/pack_outputs.h"
#include "cli/pack/pack_verification.h"
#include "cli/pack/parsed_package.h"
#include "driver/pack_sections.h"

namespace morvane::cli {

namespace {

/// Ends a pack run early, so that a signal can end the program.
struct interruption {};

/// A pack run on its way.
struct packing {
  packing(const pack_options& chosen, console& output) : options(chosen), streams(output) {}

  const pack_options& options;
  console& streams;
  std::optional<blocked_signals> signals{};  // from the first file that is made on
  parsed_folder parsed{};                    // what the linter read
  std::vector<std::string> paths{};          // of the inputs
  pack_outputs outputs{};
  package_summary summary{};
};

void check_signals(const packing& run) {
  if (run.signals->is_waiting()) {
    throw interruption();
  }
}

int report_changed(std::string_view path) {
  print_message(joined(printable(path), ": was changed while it was packed"));
  return status_failed;
}

/// Ends a run after what it found.
int report_unpacked(const packing& run, const finding_writer& output) {
  flush_results(run.streams);
  print_message(joined(printable(run.options.folder), ": ", counts_text(output.counts, false),
                       ": nothing is packed"));
  return status_of(output.counts, run.options.warnings_are_errors);
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
  finding_writer output{.json = {.streams = run.streams}};
  write_finding(output, found);
  return report_unpacked(run, output);
}

/// Writes what the linter finds. With errors nothing is packed.
int lint_inputs(packing& run) {
  finding_writer output{.json = {.streams = run.streams}};
  const auto take = [&](const finding& found) { write_finding(output, found); };
  const lint_scope scope{.folder = run.options.folder, .vproc = run.options.vproc};
  const int error = lint_folder(
      scope, take, [](std::size_t /*done*/, std::size_t /*all*/) {}, &run.parsed);
  if (error != 0) {
    return report_file_error(run.options.folder, error);
  }
  if (status_of(output.counts, run.options.warnings_are_errors) != status_fine) {
    return report_unpacked(run, output);
  }
  run.paths = input_paths(run.parsed.inputs);
  return status_fine;
}

int check_outputs(packing& run) {
  return find_outputs(run.options.package, run.options.depfile, run.parsed, run.outputs);
}

int create_package(packing& run) {
  const std::string& path = run.options.package;
  run.signals.emplace();
  if (run.options.sync) {
    if (const int error = run.outputs.package.prepare_sync(); error != 0) {
      return report_file_error(
          joined(path, ": its folder cannot be read, which only --no-sync does without"), error);
    }
  }
  const int error = run.outputs.package.create();
  return error == 0 ? status_fine : report_creation_error(path, error);
}

/// Is told how much of the package is written.
void on_written(void* state, std::uint64_t written) {
  auto& run = *static_cast<packing*>(state);
  check_signals(run);
  show_progress(run.streams.progress, written);
}

/// About as many bytes as the package will have: those of the inputs.
std::uint64_t expected_size(const packing& run) {
  std::uint64_t size = 0;
  for (const file_state& state : run.parsed.before) {
    size += static_cast<std::uint64_t>(state.size);
  }
  return size;
}

/// Nothing ends a sync, and that of a large file takes long: between its parts a signal can end the
/// run.
int sync_package(const packing& run, std::uint64_t size) {
  constexpr std::uint64_t part = std::uint64_t{16} << 20U;
  int error = 0;
  for (std::uint64_t offset = 0; error == 0 && size - offset > part; offset += part) {
    error = sync_part(run.outputs.package.descriptor(), offset, part);
    check_signals(run);
  }
  return error;
}

int write_package(packing& run) {
  package_writer writer{.file = file_handle(::dup(run.outputs.package.descriptor())),
                        .watch = {.tell = on_written, .state = &run}};
  run.streams.progress = begin_progress(run.options.package, expected_size(run), run.streams.quiet);
  const std::string lost =
      append_parsed(writer, run.parsed.inputs, run.parsed.dvis, run.options.vproc);
  flush_package(writer);
  hide_progress(run.streams.progress);
  if (writer.write_error != 0) {
    return report_file_error(run.options.package, writer.write_error);
  }
  if (!lost.empty()) {
    return report_lost_image(run, lost, writer.read_error);
  }
  int error = run.options.sync ? sync_package(run, writer.written) : 0;
  if (error == 0) {
    error = run.outputs.package.complete(run.options.sync);
  }
  return error == 0 ? status_fine : report_file_error(run.options.package, error);
}

int verify_package(packing& run) {
  package_bytes package;
  // Through the open file: it has no name, and may keep permissions that do not let it be opened.
  const int error =
      package.load(file_handle(::dup(run.outputs.package.descriptor())), run.options.package);
  if (error != 0) {
    return report_file_error(run.options.package, error);
  }
  const input_comparison comparison =
      compare_with_inputs(package, run.parsed.inputs, run.parsed.dvis, run.options.vproc,
                          [&](std::uint64_t /*done*/) { check_signals(run); });
  if (comparison.error != 0) {
    return report_lost_image(run, comparison.path, comparison.error);
  }
  const std::string changed = changed_file(run.paths, run.parsed.before);
  if (!changed.empty()) {
    return report_changed(changed);
  }
  if (!is_sound(package, run.options.package, run.options.vproc, run.streams, run.summary)) {
    return status_findings;
  }
  if (!comparison.are_same) {
    print_message(joined(printable(run.options.package),
                         ": the new file does not hold what was written to it: nothing is packed"));
    return status_failed;
  }
  check_signals(run);
  return status_fine;
}

int write_depfile(packing& run) {
  const std::string& path = run.options.depfile;
  if (path.empty()) {
    return status_fine;
  }
  const std::string text = depfile_text(run.options.package, run.paths);
  if (text.empty()) {
    print_message(joined(printable(run.options.depfile),
                         ": a dependency file cannot hold a path with a line break"));
    return status_failed;
  }
  atomic_replacement& file = run.outputs.depfile;
  if (const int error = file.create(); error != 0) {
    return report_creation_error(path, error);
  }
  const int error = write_checked(file.descriptor(), text);
  return error == 0 ? finish_file(file, path, run.streams) : report_file_error(path, error);
}

/// Replaces the package. From then on, a signal waits until the user was told so.
int put_in_place(packing& run) {
  const std::string& path = run.options.package;
  if (const int error = run.outputs.package.put_in_place(); error != 0) {
    return report_file_error(path, error);
  }
  warn_of_loss(run.outputs.package, path, run.streams);
  if (const int error = run.options.sync ? run.outputs.package.sync_folder() : 0; error != 0) {
    return report_file_error(joined(path, ": is in place, but may not survive a power failure"),
                             error);
  }
  try {
    if (!run.streams.quiet) {
      print_result(run.streams, verdict_line(path, "packed", run.summary));
    }
    flush_results(run.streams);
  } catch (const std::system_error& failure) {
    print_message(
        joined(printable(path), ": is in place, but cannot be told of: ", failure.what()));
    return status_failed;
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

}  // namespace morvane::cli

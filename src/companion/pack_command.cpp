#include "companion/pack_command.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <vector>

#include "companion/depfile.h"
#include "companion/held_signals.h"
#include "companion/input_states.h"
#include "companion/pack_messages.h"
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
  held_signals signals{};  // until the temporary file is gone
  pack_inputs inputs{};
  std::vector<std::string> paths{};  // of the inputs
  file_states before{};              // what the inputs were like at the begin
  replacement_file package{};
  package_summary summary{};
};

/// A folder that cannot be read has no inputs; this says so with the system's reason.
int find_all_inputs(packing& run) {
  run.inputs.folder = run.options.folder;
  const file_handle folder = open_at(AT_FDCWD, run.options.folder, O_RDONLY | O_DIRECTORY);
  if (!folder.is_open()) {
    return report_file_error(run.options.folder, errno);
  }
  const int status = tell_messages(run.streams, run.options.warnings_are_errors,
                                   [&] { return find_inputs(run.inputs, run.options.vproc); });
  if (status != status_fine) {
    return status;
  }
  run.paths = input_paths(run.inputs);
  run.before = states_of(run.paths);
  return run.before.error == 0 ? status_fine
                               : report_file_error(run.before.failed, run.before.error);
}

int create_package(packing& run) {
  const auto existing = identity_at(run.options.package);
  if (existing && is_input(*existing, run.inputs)) {
    print_message(joined(printable(run.options.package), ": is one of the files to pack"));
    return status_failed;
  }
  const int error = run.package.create(run.options.package);
  return error == 0 ? status_fine : report_file_error(run.options.package, error);
}

void end_at_a_signal(const packing& run) {
  if (run.signals.is_waiting()) {
    throw interruption();
  }
}

/// Is told how much of the package is written.
void see_progress(void* state, std::uint64_t written) {
  auto& run = *static_cast<packing*>(state);
  end_at_a_signal(run);
  show_progress(run.streams.progress, written);
}

/// About as many bytes as the package will have: those of the inputs.
std::uint64_t expected_size(const packing& run) {
  std::uint64_t size = 0;
  for (const file_state& state : run.before.states) {
    size += static_cast<std::uint64_t>(state.size);
  }
  return size;
}

/// The first input that cannot be opened now; empty when all can be.
std::string unreadable_input(const packing& run, int& error) {
  for (const std::string& path : run.paths) {
    if (!open_to_read(path).handle.is_open()) {
      error = errno;
      return path;
    }
  }
  return {};
}

int write_package(packing& run) {
  package_writer writer{.file = file_handle(::dup(run.package.descriptor())),
                        .watch = {.tell = see_progress, .state = &run}};
  run.streams.progress = begin_progress(run.options.package, expected_size(run), run.streams.quiet);
  std::uint32_t size = 0;
  const int status = tell_messages(run.streams, run.options.warnings_are_errors, [&] {
    return append_sections(writer, run.inputs, run.options.vproc, size);
  });
  flush_package(writer);
  hide_progress(run.streams.progress);
  if (writer.write_error != 0) {
    return report_file_error(run.package.path(), writer.write_error);
  }
  if (status != status_fine) {
    int error = 0;
    const std::string path = unreadable_input(run, error);
    return path.empty() ? status : report_file_error(path, error);
  }
  const int error = run.options.sync ? sync_file(run.package.descriptor()) : 0;
  return error == 0 ? status_fine : report_file_error(run.package.path(), error);
}

int verify_package(packing& run) {
  const std::string temporary = run.package.path();
  package_bytes package;
  if (const int error = package.load(temporary); error != 0) {
    return report_file_error(temporary, error);
  }
  const input_comparison comparison = compare_with_inputs(package, run.inputs);
  if (comparison.error != 0) {
    return report_file_error(comparison.path, comparison.error);
  }
  const std::string changed = changed_file(run.paths, run.before);
  if (!changed.empty()) {
    print_message(joined(printable(changed), ": was changed while it was packed"));
    return status_failed;
  }
  const verdict_request request{.package = run.options.package,
                                .vproc = run.options.vproc,
                                .warnings_are_errors = run.options.warnings_are_errors};
  if (!is_sound(package, request, run.streams, run.summary)) {
    return status_findings;
  }
  if (!comparison.are_same) {
    print_message(joined(printable(temporary), ": does not hold what was written to it"));
    return status_failed;
  }
  end_at_a_signal(run);
  return status_fine;
}

int write_depfile(const packing& run) {
  if (run.options.depfile.empty()) {
    return status_fine;
  }
  const std::string text = depfile_text(run.options.package, run.paths);
  if (text.empty()) {
    print_message("a dependency file cannot hold a path with a line break");
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
  packing run(options, streams);
  for (const auto step : {find_all_inputs, create_package, write_package, verify_package}) {
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

#include "cli/pack/pack_command.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <initializer_list>
#include <optional>
#include <span>
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
  packing(const pack_options& chosen, console& console)
      : options(chosen), streams(console), output(streams, options.findings) {}

  const pack_options& options;
  console& streams;
  finding_writer output;
  std::string name = options.package;        // of what is written, for messages
  std::optional<blocked_signals> signals{};  // from the first file that is made on
  parsed_folder parsed{};                    // what the linter read
  std::vector<std::string> paths{};          // of the inputs
  pack_outputs outputs{};
  file_handle memory{};  // open when the package is made there
  package_summary summary{};
  int folder_error = 0;  // an errno, if the folder cannot be read
};

/// The new package, open to read and to write.
int descriptor_of(const packing& run) {
  return run.memory.is_open() ? run.memory.descriptor() : run.outputs.package.descriptor();
}

void check_signals(const packing& run) {
  if (run.signals && run.signals->is_waiting()) {
    throw interruption();
  }
}

int report_changed(std::string_view path) {
  print_message(joined(printable(path), ": was changed while it was packed"));
  return status_failed;
}

/// Ends a run after what it found.
int report_unpacked(packing& run) {
  const finding_counts& counts = run.output.counts;
  flush_results(run.streams);
  print_message(joined(printable(run.options.folder), ": ", counts_text(counts, false),
                       ": nothing is packed"));
  return status_of(counts, run.options.findings.warnings_are_errors);
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
  write_finding(run.output, found);
  return report_unpacked(run);
}

/// With errors that are ignored or accepted, only the pack run itself can tell whether there is a
/// package: what makes it fail counts all the same.
int try_pack_run(const packing& run) {
  const collected_messages messages;
  pack_inputs inputs{.folder = run.options.folder, .dvis = {}, .headers = {}};
  package_writer nowhere{.file = open_to_write("/dev/null").handle};
  std::uint32_t size = 0;
  if (find_inputs(inputs, run.options.vproc) == 0 &&
      append_sections(nowhere, inputs, run.options.vproc, size) == 0) {
    return status_fine;
  }
  const std::string_view text = std::string_view(messages.text).substr(0, messages.text.size() - 1);
  print_message(joined(printable(run.options.folder),
                       ": the pack run fails, which cannot be accepted: ",
                       printable(text.substr(text.rfind('\n') + 1)), ": nothing is packed"));
  return status_findings;
}

/// Writes what the linter finds. With errors nothing is packed.
int lint_inputs(packing& run) {
  const auto take = [&](const finding& found) { write_finding(run.output, found); };
  const lint_scope scope{.folder = run.options.folder, .vproc = run.options.vproc};
  const int error = lint_folder(
      scope, take, [](std::size_t /*done*/, std::size_t /*all*/) {}, &run.parsed);
  if (error != 0) {
    run.folder_error = error;
    return report_file_error(run.options.folder, error);
  }
  if (status_of(run.output.counts, run.options.findings.warnings_are_errors) != status_fine) {
    return report_unpacked(run);
  }
  if (const int status = run.output.has_hidden_error ? try_pack_run(run) : status_fine;
      status != status_fine) {
    return status;
  }
  run.paths = input_paths(run.parsed.inputs);
  return status_fine;
}

int check_outputs(packing& run) {
  const std::string& depfile = run.options.depfile;
  return find_outputs(run.options.package, depfile == standard_output_path ? "" : depfile,
                      run.parsed, run.outputs);
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

/// What is only in memory is gone with the program: no signal has to wait.
int create_in_memory(packing& run) {
  run.name = run.options.folder;
  run.memory = file_handle(::memfd_create("package", MFD_CLOEXEC));
  return run.memory.is_open() ? status_fine : report_file_error(run.name, errno);
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
int sync_package(const packing& run) {
  constexpr off_t part = off_t{16} << 20U;
  const int file = run.outputs.package.descriptor();
  const off_t size = ::lseek(file, 0, SEEK_END);
  int error = 0;
  for (off_t offset = 0; error == 0 && size - offset > part; offset += part) {
    error = sync_part(file, offset, part);
    check_signals(run);
  }
  return error;
}

int write_package(packing& run) {
  package_writer writer{.file = file_handle(::dup(descriptor_of(run))),
                        .watch = {.tell = on_written, .state = &run}};
  run.streams.progress = begin_progress(run.name, expected_size(run), run.streams.quiet);
  const std::string lost =
      append_parsed(writer, run.parsed.inputs, run.parsed.dvis, run.options.vproc);
  flush_package(writer);
  hide_progress(run.streams.progress);
  if (writer.write_error != 0) {
    return report_file_error(run.name, writer.write_error);
  }
  return lost.empty() ? status_fine : report_lost_image(run, lost, writer.read_error);
}

int complete_package(packing& run) {
  int error = run.options.sync ? sync_package(run) : 0;
  if (error == 0) {
    error = run.outputs.package.complete(run.options.sync);
  }
  return error == 0 ? status_fine : report_file_error(run.name, error);
}

/// Reads the new package. Through the open file: it has no name, and may keep permissions that do
/// not let it be opened.
int load_package(const packing& run, package_bytes& package) {
  const int error = package.load(file_handle(::dup(descriptor_of(run))), run.name);
  return error == 0 ? status_fine : report_file_error(run.name, error);
}

int verify_package(packing& run) {
  package_bytes package;
  if (const int status = load_package(run, package); status != status_fine) {
    return status;
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
  if (!comparison.are_same) {
    print_message(joined(printable(run.name),
                         ": the new file does not hold what was written to it: nothing is packed"));
    return status_failed;
  }
  if (!is_sound(package, run.name, run.options.vproc, run.output, run.summary)) {
    return report_unpacked(run);
  }
  check_signals(run);
  return status_fine;
}

int write_depfile(packing& run) {
  const std::string& path = run.options.depfile;
  if (path.empty()) {
    return status_fine;
  }
  const std::string& baseline = run.options.findings.baseline;
  if (!baseline.empty() && baseline != standard_output_path) {
    run.paths.push_back(baseline);
  }
  const std::string text = depfile_text(run.options.package, run.paths);
  if (text.empty()) {
    print_message(joined(printable(run.options.depfile),
                         ": a dependency file cannot hold a path with a line break"));
    return status_failed;
  }
  if (path == standard_output_path) {
    const int error = write_checked(STDOUT_FILENO, text);
    return error == 0 ? status_fine : report_file_error(standard_output_name, error);
  }
  return write_file(run.outputs.depfile, path, text, run.streams);
}

/// Whether a file is an input, the package or the dependency file.
bool is_used(const pack_options& options, const atomic_replacement& file) {
  const auto is_at = [&](const std::string& path) {
    atomic_replacement other;
    return !path.empty() && path != standard_output_path && other.find(path) == 0 &&
           are_same_file(file, other);
  };
  return is_in_folder(options.folder, file) || is_at(options.package) || is_at(options.depfile);
}

/// Goes through the steps up to the complete package, and writes the reports about what they find.
/// Returns the exit status.
int write_findings(packing& run, std::initializer_list<int (*)(packing&)> steps) {
  int status = begin_output(
      run.output, [&](const atomic_replacement& file) { return is_used(run.options, file); });
  if (status != status_fine) {
    return status;
  }
  write_json(run.output,
             [&](json_writer& json) { write_member(json, "folder", run.options.folder); });
  begin_findings(run.output, run.options.folder);
  for (const auto step : steps) {
    if (status == status_fine) {
      status = step(run);
    }
  }
  if (status == status_fine) {
    write_stale_entries(run.output, false);
  }
  end_findings(run.output, run.options.folder, run.folder_error);
  return end_output(run.output, status);
}

void write_verdict(packing& run, std::string_view path) {
  if (!run.streams.quiet && is_for_people(run.output)) {
    print_result(run.streams,
                 verdict_line(path, "packed" + accepted_text(run.output.counts), run.summary));
  }
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
    write_verdict(run, path);
    flush_results(run.streams);
  } catch (const std::system_error& failure) {
    print_message(
        joined(printable(path), ": is in place, but cannot be told of: ", failure.what()));
    return status_failed;
  }
  return status_fine;
}

int pack_into_memory(packing& run, package_bytes& package) {
  const int status =
      write_findings(run, {lint_inputs, create_in_memory, write_package, verify_package});
  return status == status_fine ? load_package(run, package) : status;
}

/// Writes the package when all of it is known to be right. What else is told goes to standard
/// error.
int pack_to_output(packing& run) {
  if (!run.options.depfile.empty()) {
    print_message("standard output: a package without a name has no rule in a dependency file");
    return status_failed;
  }
  run.streams.descriptor = STDERR_FILENO;
  package_bytes package;
  if (const int status = pack_into_memory(run, package); status != status_fine) {
    return status;
  }
  const int error = write_checked(STDOUT_FILENO, std::as_bytes(package.bytes()));
  if (error != 0) {
    return report_file_error(standard_output_name, error);
  }
  write_verdict(run, standard_output_name);
  return status_fine;
}

int pack_to_file(packing& run) {
  if (run.options.depfile == standard_output_path) {
    run.streams.descriptor = STDERR_FILENO;
  }
  int status = write_findings(run, {lint_inputs, check_outputs, create_package, write_package,
                                    complete_package, verify_package});
  if (status == status_fine) {
    status = write_depfile(run);
  }
  return status == status_fine ? put_in_place(run) : status;
}

}  // namespace

int run_pack(const pack_options& options, console& streams) try {
  packing run(options, streams);
  const int status =
      options.package == standard_output_path ? pack_to_output(run) : pack_to_file(run);
  write_next_step(run.output, "");
  return status;
} catch (const interruption&) {
  return status_failed;  // for a signal that does not end the program
}

int pack_into_memory(const pack_options& options, console& streams, package_bytes& package) {
  packing run(options, streams);
  return pack_into_memory(run, package);
}

}  // namespace morvane::cli

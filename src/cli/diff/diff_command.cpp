#include "cli/diff/diff_command.h"

#include <unistd.h>

#include <filesystem>

#include "cli/diff/byte_difference.h"
#include "cli/diff/compare_packages.h"
#include "cli/diff/difference_output.h"
#include "cli/output/json_writer.h"
#include "cli/pack/pack_command.h"
#include "cli/package/opened_package.h"

namespace morvane::cli {

namespace {

/// Whether both packages have the same bytes, with progress.
bool are_same(const opened_package& old_package, const opened_package& new_package,
              console& streams) {
  streams.progress =
      begin_progress(old_package.path, old_package.bytes.bytes().size(), streams.quiet);
  const bool same = have_same_bytes(old_package.bytes, new_package.bytes, [&](std::uint64_t done) {
    show_progress(streams.progress, done);
  });
  hide_progress(streams.progress);
  return same;
}

void write_package(json_writer& json, std::string_view member, const opened_package& package) {
  begin_object(json, member);
  write_member(json, "file", package.path);
  write_member(json, "size", package.view.size);
  write_member(json, "damaged", is_damaged(package));
  end_object(json);
}

void write_json(const opened_package& old_package, const opened_package& new_package, bool same,
                console& streams) {
  json_writer json{.streams = streams};
  begin_object(json);
  write_member(json, "same", same);
  write_package(json, "old", old_package);
  write_package(json, "new", new_package);
  begin_array(json, "differences");
  if (!same) {
    compare_packages(old_package, new_package, streams,
                     [&](const difference& found) { write_difference_object(json, found); });
  }
  end_array(json);
  end_object(json);
  end_document(json);
}

bool names_folder(const std::string& path) {
  std::error_code error;
  return path != standard_input_path && std::filesystem::is_directory(path, error);
}

/// Opens a package, or the one that is made from a folder, with vproc records or without. What
/// keeps the folder from being packed is told on standard error. Returns the exit status.
int open_side(const std::string& path, bool vproc, opened_package& side) {
  if (!names_folder(path)) {
    return open_or_report(path, side);
  }
  console diagnostics{.descriptor = STDERR_FILENO, .quiet = true};
  side.path = path;
  const int status = pack_into_memory({.folder = path, .vproc = vproc}, diagnostics, side.bytes);
  flush_results(diagnostics);
  open_bytes(side);
  return status;
}

/// Opens one after the other. A folder that comes second is packed as the first side is, with vproc
/// records or without; one that comes first, with them.
int open_in_turn(const std::string& first_path, opened_package& first,
                 const std::string& second_path, opened_package& second) {
  const int status = open_side(first_path, true, first);
  return status == status_fine ? open_side(second_path, first.view.vproc_table != 0, second)
                               : status;
}

int open_both(const diff_options& options, opened_package& old_package,
              opened_package& new_package) {
  return names_folder(options.old_package)
             ? open_in_turn(options.new_package, new_package, options.old_package, old_package)
             : open_in_turn(options.old_package, old_package, options.new_package, new_package);
}

}  // namespace

int run_diff(const diff_options& options, console& streams) {
  opened_package old_package;
  opened_package new_package;
  if (open_both(options, old_package, new_package) != status_fine) {
    return status_failed;
  }
  warn_of_damage(old_package, "compared", streams);
  warn_of_damage(new_package, "compared", streams);
  const bool same = are_same(old_package, new_package, streams);
  if (options.json) {
    write_json(old_package, new_package, same, streams);
  } else if (!same && !streams.quiet) {
    compare_packages(old_package, new_package, streams, [&](const difference& found) {
      print_result(streams, difference_line(found));
    });
  }
  return same ? status_fine : status_findings;
}

}  // namespace morvane::cli

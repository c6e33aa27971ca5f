#include "cli/diff/diff_command.h"

#include "cli/diff/byte_difference.h"
#include "cli/diff/compare_packages.h"
#include "cli/diff/difference_output.h"
#include "cli/output/json_writer.h"
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

}  // namespace

int run_diff(const diff_options& options, console& streams) {
  opened_package old_package;
  opened_package new_package;
  if (open_or_report(options.old_package, old_package) != status_fine ||
      open_or_report(options.new_package, new_package) != status_fine) {
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

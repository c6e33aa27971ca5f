#include "cli/extract/extract_command.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "cli/extract/extractable_images.h"
#include "cli/extract/image_writing.h"
#include "cli/files/blocked_signals.h"
#include "cli/files/made_folder.h"
#include "cli/files/temporary_file.h"
#include "cli/output/printable_text.h"
#include "cli/package/named_dvis.h"
#include "cli/package/opened_package.h"
#include "cli/package/package_walk.h"
#include "format/file_naming.h"
#include "io/file.h"

namespace morvane::cli {

namespace {

/// EFAULT means that the package cannot be read: it is not as long as it was, or its disk fails.
/// EEXIST means that a file is in the way.
int report_write_error(const opened_package& package, std::string_view target, int error) {
  if (error == EFAULT && package.bytes.mapped() != nullptr) {
    report_lost_bytes(*package.bytes.mapped());
  } else if (error == EEXIST) {
    print_message(joined(printable(target), ": the file exists; --force replaces it"));
  } else {
    report_file_error(target, error);
  }
  return status_failed;
}

/// Writes one image to its file, whole or not at all. A signal ends the program when nothing of an
/// incomplete file is left.
int write_file(const opened_package& package, const morvane_view_dvi& dvi,
               const file_handle& folder, const std::string& name, const extract_options& options,
               progress_line& progress) {
  const blocked_signals signals;
  temporary_file file(folder);
  int error = file.create();
  if (error == 0) {
    error =
        write_image(package, image_of(package.view, dvi), file.descriptor(), &signals, progress);
  }
  return error == 0 ? file.put_in_place(name, options.force) : error;
}

/// An image must not replace the package that it comes from.
int check_target(const opened_package& package, const file_handle& folder, const std::string& name,
                 const std::string& path) {
  struct stat status {};
  if (::fstatat(folder.descriptor(), name.c_str(), &status, 0) != 0) {
    const bool is_free = errno == ENOENT || errno == ELOOP;
    return is_free ? status_fine : report_file_error(path, errno);
  }
  if (identity_in(status) != package.bytes.identity()) {
    return status_fine;
  }
  print_message(
      joined(printable(path), ": the image must not replace the package that it comes from"));
  return status_failed;
}

int extract_to_folder(const opened_package& package, const std::vector<morvane_view_dvi>& selected,
                      const extract_options& options, console& streams) {
  const made_folder made(options.folder);
  const file_handle& folder = made.handle();
  if (!folder.is_open()) {
    return report_file_error(options.folder, errno);
  }
  int status = status_fine;
  for (const morvane_view_dvi& dvi : selected) {
    const std::string name = image_name(str(dvi.dag_name));
    const std::string path = options.folder == "." ? name : join_path(options.folder, name);
    if (options.force && check_target(package, folder, name, path) != status_fine) {
      status = status_failed;
      continue;
    }
    streams.progress = begin_progress(path, dvi.dvi_img_size, streams.quiet);
    const int error = write_file(package, dvi, folder, name, options, streams.progress);
    hide_progress(streams.progress);
    if (error != 0) {
      status = report_write_error(package, path, error);
    } else if (!streams.quiet) {
      print_result(streams,
                   joined(printable(path), ": ", count_of(dvi.dvi_img_size, "byte"), "\n"));
    }
  }
  return status;
}

int extract_to_output(const opened_package& package, const std::vector<morvane_view_dvi>& selected,
                      console& streams) {
  if (selected.size() != 1) {
    print_message(joined("standard output takes one image, not ", selected.size(),
                         "; give one of the names that morvane extract --list prints"));
    return status_failed;
  }
  const auto image = image_of(package.view, selected.front());
  streams.progress = begin_progress(package.path, image.size(), streams.quiet);
  const int error = write_image(package, image, STDOUT_FILENO, nullptr, streams.progress);
  hide_progress(streams.progress);
  return error == 0 ? status_fine : report_write_error(package, "standard output", error);
}

int list_names(const std::vector<morvane_view_dvi>& selected, console& streams) {
  for (const morvane_view_dvi& dvi : selected) {
    print_result(streams, printable(str(dvi.dag_name)) + "\n");
  }
  return status_fine;
}

/// Extracts or lists what can have a file; tells of each name that cannot.
int use_safe_names(const opened_package& package, std::vector<morvane_view_dvi> selected,
                   const extract_options& options, console& streams) {
  const std::vector<std::string> refused = refuse_names(package.view, selected);
  for (const std::string& sentence : refused) {
    print_message(joined(printable(package.path), ": not extracted: ", sentence));
  }
  const int status = options.list ? list_names(selected, streams)
                                  : extract_to_folder(package, selected, options, streams);
  return refused.empty() ? status : std::max<int>(status, status_findings);
}

}  // namespace

int run_extract(const extract_options& options, console& streams) {
  opened_package package;
  if (open_or_report(options.package, package) != status_fine) {
    return status_failed;
  }
  warn_of_damage(package, "extracted", streams);
  const int status = std::max<int>(is_damaged(package) ? status_findings : status_fine,
                                   report_missing_names(package, options.dag_names));
  std::vector<morvane_view_dvi> selected;
  for_each_named_dvi(package.view, options.dag_names,
                     [&](const morvane_view_dvi& dvi) { selected.push_back(dvi); });
  const bool to_output = options.folder == standard_output_path && !options.list;
  if (!to_output) {
    return std::max(status, use_safe_names(package, std::move(selected), options, streams));
  }
  return status == status_failed ? status
                                 : std::max(status, extract_to_output(package, selected, streams));
}

}  // namespace morvane::cli

#include "cli/report/report_command.h"

#include <unistd.h>

#include <optional>

#include "cli/files/atomic_replacement.h"
#include "cli/files/blocked_signals.h"
#include "cli/output/printable_text.h"
#include "cli/report/dot_file.h"
#include "cli/report/sections/sections.h"
#include "io/file.h"
#include "io/message.h"

namespace morvane::cli {

namespace {

/// What is read for a page.
struct report_inputs {
  opened_package package{};
  std::optional<opened_package> old_package{};
};

int open_inputs(const report_options& options, report_inputs& inputs) {
  const int status = open_or_report(options.package, inputs.package);
  return status != status_fine || options.old_package.empty()
             ? status
             : open_or_report(options.old_package, inputs.old_package.emplace());
}

bool is_to_file(const report_options& options) {
  return !options.output.empty() && options.output != standard_output_path;
}

/// Whether a page would replace one of the packages, under whatever name.
bool is_input(const atomic_replacement& page, const report_inputs& inputs) {
  const std::optional<file_identity> replaced = page.replaced();
  return replaced && (replaced == inputs.package.bytes.identity() ||
                      (inputs.old_package && replaced == inputs.old_package->bytes.identity()));
}

/// Where a page goes.
struct report_target {
  const report_options& options;
  console& streams;
  std::optional<blocked_signals> signals{};  // as long as the file is not complete
  atomic_replacement file{};
};

/// Finds the place of the page, and makes nothing there yet.
int find_target(const report_inputs& inputs, report_target& target) {
  const std::string& path = target.options.output;
  if (!is_to_file(target.options)) {
    return status_fine;
  }
  if (const int error = target.file.find(path); error != 0) {
    return report_place_error(path, error);
  }
  if (is_input(target.file, inputs)) {
    print_message(
        joined(printable(path), ": the page must not replace a package that it is made from"));
    return status_failed;
  }
  return status_fine;
}

/// Writes all that a function adds to a page. A file takes the place of an older one when it is
/// complete, and only while it is not, signals wait.
template <class Function>
int write_target(report_target& target, Function add_all) {
  const std::string& path = target.options.output;
  if (!is_to_file(target.options)) {
    page_output out{target.streams, STDOUT_FILENO, "standard output", nullptr};
    add_all(out);
    flush(out);
    return status_fine;
  }
  target.signals.emplace();
  if (const int error = target.file.create(); error != 0) {
    return report_creation_error(path, error);
  }
  page_output out{target.streams, target.file.descriptor(), printable(path), &*target.signals};
  add_all(out);
  flush(out);
  return finish_file(target.file, path, target.streams);
}

}  // namespace

int run_report(const report_options& options, console& streams) try {
  report_inputs inputs;
  if (const int status = open_inputs(options, inputs); status != status_fine) {
    return status;
  }
  report_target target{options, streams};
  if (const int status = find_target(inputs, target); status != status_fine) {
    return status;
  }
  const opened_package& package = inputs.package;
  if (options.dot) {
    warn_of_damage(package, "shown", streams);
    const network_flow flow = find_flow(package);
    return write_target(target, [&](page_output& out) { write_dot(package, flow, out); });
  }
  page_content content = find_content(package, streams);
  std::optional<package_changes> changes;
  if (inputs.old_package) {
    changes = find_changes(*inputs.old_package, package, streams);
    find_lost_inputs(*inputs.old_package, package, content.flow);
    content.changes = &*changes;
  }
  return write_target(target, [&](page_output& out) { write_page(content, out); });
} catch (const page_interruption&) {
  return status_failed;  // for a signal that does not end the program
}

}  // namespace morvane::cli

#include "cli/report/report_command.h"

#include <unistd.h>

#include <optional>

#include "cli/files/atomic_replacement.h"
#include "cli/files/blocked_signals.h"
#include "cli/output/printable_text.h"
#include "cli/report/dot_file.h"
#include "cli/report/page.h"
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
  if (const int error = open_package(options.package, inputs.package); error != 0) {
    return report_file_error(options.package, error);
  }
  if (!options.old_package.empty()) {
    const int error = open_package(options.old_package, inputs.old_package.emplace());
    return error == 0 ? status_fine : report_file_error(options.old_package, error);
  }
  return status_fine;
}

void write_report(const report_options& options, const report_inputs& inputs, page_output& out) {
  if (options.dot) {
    warn_of_damage(inputs.package, "shown", out.streams);
    write_dot(inputs.package, find_flow(inputs.package), out);
  } else {
    page_content content = find_content(inputs.package, out.streams);
    std::optional<package_changes> changes;
    if (inputs.old_package) {
      changes = find_changes(*inputs.old_package, inputs.package, out.streams);
      content.changes = &*changes;
    }
    write_page(content, out);
  }
  flush(out);
}

/// Whether a path leads to one of the packages, under whatever name.
bool is_input(const std::string& path, const report_options& options) {
  const std::optional<file_identity> file = identity_at(path);
  return file && (file == identity_at(options.package) || file == identity_at(options.old_package));
}

/// Writes the page to a file that takes the place of an older one when it is complete.
int write_file(const report_options& options, const report_inputs& inputs, console& streams) {
  if (is_input(options.output, options)) {
    print_message(joined(printable(options.output),
                         ": the page must not replace a package that it is made from"));
    return status_failed;
  }
  const blocked_signals signals;
  atomic_replacement file;
  if (const int error = file.find(options.output); error != 0) {
    return report_file_error(options.output, error);
  }
  if (const int error = file.create(); error != 0) {
    return report_creation_error(options.output, error);
  }
  page_output out{streams, file.descriptor(), printable(options.output), &signals};
  write_report(options, inputs, out);
  return finish_file(file, options.output, streams);
}

}  // namespace

int run_report(const report_options& options, console& streams) try {
  report_inputs inputs;
  if (const int status = open_inputs(options, inputs); status != status_fine) {
    return status;
  }
  if (!options.output.empty() && options.output != standard_output_path) {
    return write_file(options, inputs, streams);
  }
  page_output out{streams, STDOUT_FILENO, "standard output", nullptr};
  write_report(options, inputs, out);
  return status_fine;
} catch (const page_interruption&) {
  return status_failed;  // for a signal that does not end the program
}

}  // namespace morvane::cli

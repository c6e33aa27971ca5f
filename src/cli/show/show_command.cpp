#include "cli/show/show_command.h"

#include "cli/package/opened_package.h"
#include "cli/show/show_formats.h"

namespace morvane::cli {

int run_show(const show_options& options, console& streams) {
  opened_package package;
  if (open_or_report(options.package, package) != status_fine) {
    return status_failed;
  }
  streams.progress = begin_progress(options.package, package.view.size, streams.quiet);
  if (options.json) {
    show_json(package, options.digest, streams);
  } else {
    show_tables(package, options.digest, streams);
  }
  warn_of_damage(package, "shown", streams);
  return is_damaged(package) ? status_findings : status_fine;
}

}  // namespace morvane::cli

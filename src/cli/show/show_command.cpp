#include "cli/show/show_command.h"

#include <algorithm>

#include "cli/package/named_dvis.h"
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
    show_json(package, options, streams);
  } else if (options.csv) {
    show_csv(package, options, streams);
  } else {
    show_tables(package, options, streams);
  }
  warn_of_damage(package, "shown", streams);
  flush_results(streams);
  return std::max<int>(is_damaged(package) ? status_findings : status_fine,
                       report_missing_names(package, options.dag_names));
}

}  // namespace morvane::cli

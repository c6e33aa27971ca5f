#include "companion/show_command.h"

#include "companion/damage.h"
#include "companion/package_bytes.h"
#include "companion/printable_text.h"
#include "companion/show_json.h"
#include "companion/show_tables.h"
#include "companion/shown_package.h"

namespace morvane::companion {

namespace {

void warn_of_damage(console& streams, const std::string& path) {
  if (!streams.quiet) {
    flush_results(streams);
    print_message(joined(printable(path),
                         ": the package is damaged; shown is what comes before "
                         "the damage, and morvane check tells more"));
  }
}

}  // namespace

int run_show(const show_options& options, console& streams) {
  shown_package shown;
  const int error = shown.bytes.load(options.package);
  if (error != 0) {
    return report_file_error(options.package, error);
  }
  shown.path = options.package;
  shown.with_digests = options.digest;
  const auto bytes = shown.bytes.bytes();
  const int status = morvane_view_open(&shown.view, bytes.data(), bytes.size(), &shown.damage);
  streams.progress = begin_progress(options.package, bytes.size(), streams.quiet);
  if (options.json) {
    show_json(shown, streams);
  } else {
    show_tables(shown, streams);
  }
  if (status != MORVANE_VIEW_OK) {
    warn_of_damage(streams, options.package);
    return status_findings;
  }
  return status_fine;
}

}  // namespace morvane::companion

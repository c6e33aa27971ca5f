#include "companion/check_command.h"

#include <algorithm>
#include <string_view>

#include "companion/package_bytes.h"
#include "companion/verdict.h"

namespace morvane::companion {

namespace {

int check_one(const std::string& path, const check_options& options, console& streams) {
  package_bytes package;
  const int error = package.load(path);
  if (error != 0) {
    return report_file_error(path, error);
  }
  finding_counts counts;
  const package_summary summary =
      check_package(package.bytes(), options.scope, [&](const finding& found) {
        finding placed = found;
        placed.file = path;
        count(placed, counts);
        write_finding(streams, placed);
      });
  if (counts.errors > 0 || (options.warnings_are_errors && counts.warnings > 0)) {
    return status_findings;
  }
  if (!streams.quiet) {
    print_result(streams, verdict_line(path, "sound", summary));
  }
  return status_fine;
}

}  // namespace

int run_check(const check_options& options, console& streams) {
  int status = status_fine;
  for (const std::string& path : options.packages) {
    status = std::max(status, check_one(path, options, streams));
  }
  return status;
}

}  // namespace morvane::companion

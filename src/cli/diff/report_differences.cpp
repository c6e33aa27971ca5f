#include "cli/diff/report_differences.h"

#include "cli/diff/byte_difference.h"
#include "cli/diff/compare_packages.h"

namespace morvane::cli {

void report_differences(const opened_package& old_package, const opened_package& new_package,
                        console& streams, const difference_sink& sink) {
  streams.progress =
      begin_progress(old_package.path, old_package.bytes.bytes().size(), streams.quiet);
  bool is_reported = false;
  compare_packages(
      old_package, new_package,
      [&](const difference& found) {
        is_reported = true;
        sink(found);
      },
      [&](std::uint64_t done) { show_progress(streams.progress, done); });
  if (!is_reported || is_damaged(old_package) || is_damaged(new_package)) {
    const auto found = compare_bytes({old_package.bytes, old_package.bytes.bytes()},
                                     {new_package.bytes, new_package.bytes.bytes()});
    if (found) {  // it is missing when somebody changes a package meanwhile
      sink({{}, *found});
    }
  }
  hide_progress(streams.progress);
}

}  // namespace morvane::cli

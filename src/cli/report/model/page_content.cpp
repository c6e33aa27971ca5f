#include "cli/report/model/page_content.h"

#include "cli/package/package_walk.h"
#include "cli/report/model/page_limits.h"

namespace morvane::cli {

namespace {

void keep(const finding& found, checked_package& checked) {
  count(found, checked.counts);
  const severity level = level_of(found);
  std::vector<finding>& list = level == severity::error     ? checked.errors
                               : level == severity::warning ? checked.warnings
                                                            : checked.notes;
  if (list.size() < max_kept_findings) {
    list.push_back({.kind = found.kind,
                    .file = {},
                    .place = found.place,
                    .text = text_with_rest(found),
                    .level = level});
  }
}

checked_package check(const opened_package& package, console& streams) {
  checked_package checked;
  streams.progress = begin_progress(package.path, package.view.size, streams.quiet);
  check_package(
      package.view, package.damage, {.notes = true},
      [&](const finding& found) { keep(found, checked); },
      [&](std::uint64_t done) { show_progress(streams.progress, done); });
  hide_progress(streams.progress);
  return checked;
}

package_totals totals_of(const morvane_view& view) {
  package_totals totals;
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    totals.ports += port_count(dvi);
    totals.variables += dvi.variable_num;
    totals.smbs += dvi.smb_num;
    totals.image_bytes += dvi.dvi_img_size;
    if (dvi.dvi_img_size > totals.biggest.dvi_img_size) {
      totals.biggest = dvi;
    }
  });
  return totals;
}

}  // namespace

page_content find_content(const opened_package& package, console& streams) {
  return {.package = package,
          .checked = check(package, streams),
          .totals = totals_of(package.view),
          .flow = find_flow(package)};
}

}  // namespace morvane::cli

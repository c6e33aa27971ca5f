#include "cli/check/check_package.h"

#include <cstddef>

#include "cli/check/block_rules.h"
#include "cli/check/record_rules.h"
#include "cli/check/table_rules.h"
#include "cli/findings/damage.h"
#include "cli/package/package_walk.h"
#include "cli/package/port_flow.h"

namespace morvane::cli {

namespace {

/// A package that is cut before its vproc part tells nothing about it.
void check_demand(const morvane_view& view, int status, vproc_demand demand,
                  const finding_sink& sink) {
  const bool has_vproc = view.vproc_table != 0;
  if (demand == vproc_demand::required && status == MORVANE_VIEW_OK && !has_vproc) {
    report(sink, kind_of("vproc-missing"), view.size, "the package has no vproc records");
  }
  if (demand == vproc_demand::forbidden && has_vproc) {
    report(sink, kind_of("vproc-present"), view.vproc_table, "the package has vproc records");
  }
}

/// Checks the ports, variables and SMB blocks. Returns the number of ports.
std::uint64_t check_blocks(const morvane_view& view, bool with_notes, const finding_sink& sink,
                           const progress_sink& progress) {
  std::uint64_t ports = 0;
  known_outputs outputs;
  outputs.reserve(view.sound_dvis);
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    check_ports(view, dvi, outputs, sink);
    if (with_notes) {
      note_port_overlaps(view, dvi, sink);
    }
    ports += port_count(dvi);
    progress(dvi.block);
  });
  if (view.vproc_table != 0) {
    for_each_dvi(view, [&](const morvane_view_dvi& dvi) { check_vproc(view, dvi, sink); });
  }
  return ports;
}

}  // namespace

package_summary check_package(const morvane_view& view, const morvane_view_damage& damage,
                              const check_scope& scope, const finding_sink& sink,
                              const progress_sink& progress) {
  if (damage.status != MORVANE_VIEW_OK) {
    report_damage(damage, sink);
  }
  if (damage.status != MORVANE_VIEW_HEADER_CUT && view.dvi_num == 0) {
    report(sink, kind_of("no-dvis"), offsetof(morvane_pkg_header, dvi_num),
           "the package has no DVI, so nothing was checked");
  }
  check_demand(view, damage.status, scope.vproc, sink);
  check_table(view, scope.notes, sink);
  return {.dvis = view.sound_dvis,
          .ports = check_blocks(view, scope.notes, sink, progress),
          .has_vproc = view.vproc_table != 0,
          .bytes = view.size};
}

}  // namespace morvane::cli

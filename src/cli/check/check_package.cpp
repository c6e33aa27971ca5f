#include "cli/check/check_package.h"

#include <cstddef>

#include "cli/check/block_rules.h"
#include "cli/check/network_rules.h"
#include "cli/check/record_rules.h"
#include "cli/check/table_rules.h"
#include "cli/findings/damage.h"
#include "cli/output/printable_text.h"
#include "cli/package/package_walk.h"
#include "format/build_constants.h"

namespace morvane::cli {

namespace {

/// Tells of a package that another version wrote. Returns whether the file may be a package at all.
bool check_version(const morvane_view& view, const finding_sink& sink) {
  if (view.version == version_word) {
    return true;
  }
  const bool is_known_source = view.HASH == revision_hash();
  report(sink, kind_of("other-version"), offsetof(morvane_pkg_header, version),
         joined("the package has ", version_text(view.version, view.HASH), ", and only ",
                version_text(version_word, revision_hash()), " is known",
                is_known_source ? "" : ": this is probably no package, so it was not checked"));
  return is_known_source;
}

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

/// Checks the ports, variables and SMB blocks. Returns the network of the ports and images.
wired_network check_blocks(const morvane_view& view, bool with_notes, const finding_sink& sink,
                           const progress_sink& progress) {
  wired_network network = empty_network(view);
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    check_ports(view, dvi, network, sink);
    if (with_notes) {
      note_port_overlaps(view, dvi, sink);
    }
    progress(dvi.block);
  });
  if (view.vproc_table != 0) {
    for_each_dvi(view, [&](const morvane_view_dvi& dvi) { check_vproc(view, dvi, sink); });
  }
  return network;
}

}  // namespace

package_summary check_package(const morvane_view& view, const morvane_view_damage& damage,
                              const check_scope& scope, const finding_sink& sink,
                              const progress_sink& progress) {
  if (damage.status != MORVANE_VIEW_HEADER_CUT && !check_version(view, sink)) {
    return {.bytes = view.size};
  }
  if (damage.status != MORVANE_VIEW_OK) {
    report_damage(damage, sink);
  }
  if (damage.status != MORVANE_VIEW_HEADER_CUT && view.dvi_num == 0) {
    report(sink, kind_of("no-dvis"), offsetof(morvane_pkg_header, dvi_num),
           "the package has no DVI, so nothing was checked");
  }
  check_demand(view, damage.status, scope.vproc, sink);
  check_table(view, scope.notes, sink);
  const wired_network network = check_blocks(view, scope.notes, sink, progress);
  check_network(view, network, scope.notes, sink);
  return {.dvis = view.sound_dvis,
          .ports = network.ports.size(),
          .has_vproc = view.vproc_table != 0,
          .bytes = view.size};
}

}  // namespace morvane::cli

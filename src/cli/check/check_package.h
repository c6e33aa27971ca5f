// Whether a package is sound, told from the package alone.
#pragma once

#include <morvane/package_view.h>

#include <cstdint>
#include <functional>

#include "cli/findings/findings.h"

namespace morvane::cli {

/// What a user knows about the vproc records of a package.
enum class vproc_demand { none, required, forbidden };

/// What a check looks for besides errors and warnings.
struct check_scope {
  bool notes = false;
  vproc_demand vproc = vproc_demand::none;
};

/// What a package holds, up to its first damage.
struct package_summary {
  std::uint64_t dvis = 0;
  std::uint64_t ports = 0;
  bool has_vproc = false;
  std::uint64_t bytes = 0;
};

/// Is told how many bytes of a package were dealt with.
using progress_sink = std::function<void(std::uint64_t done)>;

/// Checks an opened package and hands every finding to the sink: first those about its version,
/// which may be the only one, and about the damage that ended the walk, with status
/// MORVANE_VIEW_OK when there is none, then those of the DVI table, of the DVI blocks and of the
/// vproc part. The file of the findings is empty. A package without an error among its findings is
/// sound.
package_summary check_package(const morvane_view& view, const morvane_view_damage& damage,
                              const check_scope& scope, const finding_sink& sink,
                              const progress_sink& progress);

}  // namespace morvane::cli

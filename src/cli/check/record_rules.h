// The rules that concern one record of a package alone.
#pragma once

#include <morvane/package_view.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "cli/findings/findings.h"
#include "cli/package/package_walk.h"

namespace morvane::cli {

/// Each checks what its record holds and tells the sink what is wrong.
void check_dvi(const morvane_view_dvi& dvi, const finding_sink& sink);
void check_port(const morvane_view_port& port, const record_name& name, const finding_sink& sink);
void check_variable(const morvane_view_var& variable, const record_name& name,
                    const finding_sink& sink);
void check_smb(const morvane_view_smb_block& smb, const record_name& name,
               const finding_sink& sink);

}  // namespace morvane::cli

// The rules that concern one record of a package alone.
#pragma once

#include <morvane/package_view.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "companion/findings.h"
#include "companion/package_walk.h"

namespace morvane::companion {

/// Makes a finding at an offset of a package and hands it to the sink.
void tell(const finding_sink& sink, const finding_kind* kind, std::size_t offset, std::string text);

/// Why a DAG name cannot be used as a file name; empty when it can.
std::string_view unsafe_part(std::string_view name);

/// Each checks what its record holds and tells the sink what is wrong.
void check_dvi(const morvane_view_dvi& dvi, const finding_sink& sink);
void check_port(const morvane_view_port& port, const record_name& name, const finding_sink& sink);
void check_variable(const morvane_view_var& variable, const record_name& name,
                    const finding_sink& sink);
void check_smb(const morvane_view_smb_block& smb, const record_name& name,
               const finding_sink& sink);

}  // namespace morvane::companion

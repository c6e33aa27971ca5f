// Counts the vproc records that headers describe, and reads the SMB blocks.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "format/input_entry.h"
#include "format/records.h"

namespace morvane {

/// The vproc_desc of a header's text: the numbers of lines that introduce variables and SMBs. A
/// line that introduces both counts as a variable.
vproc_desc count_vproc_records(std::string_view header);

/// Appends one vproc_desc for every header of the folder, in the order of the list. A header that
/// cannot be read gives zeros. Returns 0.
int parse_vproc_description(std::vector<vproc_desc>& vprocs, const std::string& folder,
                            const std::vector<input_entry>& headers);

/// Appends one smb_desc for every SMB block in the header's text. Returns 0. At an SMB name that is
/// too long, reports the limit VAR_NAME, stops reading and returns -1.
int parse_smb_descriptions(std::vector<smb_desc>& smbs, std::string_view header);

}  // namespace morvane

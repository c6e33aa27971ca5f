// The description of a DAG, read from its header: its name, addresses and image size, its port
// counts.
#pragma once

#include <string>
#include <vector>

#include "format/input_entry.h"
#include "format/records.h"

namespace morvane {

/// Appends one dvi_desc for every header of the folder, in the order of the list. A header that
/// cannot be read, or names no DAG, gives a record without name, sizes and ports. Returns 0; or, at
/// a DAG name that is too long, reports the limit VAR_NAME, reads no further header and returns -1.
int parse_dag_descriptions(std::vector<dvi_desc>& dvis, const std::string& folder,
                           const std::vector<input_entry>& headers);

}  // namespace morvane

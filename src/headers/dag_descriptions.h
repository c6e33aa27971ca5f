// Reads the description of a DAG from its header: name, addresses, image size and port counts.
#pragma once

#include <string>
#include <vector>

#include "format/input_entry.h"
#include "format/records.h"

namespace morvane {

/// Appends one dvi_desc for every header of the folder, in the order of the list. A header that
/// cannot be read, or has no DAG name, gives a record without name, sizes and ports. Returns 0. At
/// a DAG name that is too long, reports the limit VAR_NAME, reads no more headers and returns -1.
int parse_dag_descriptions(std::vector<dvi_desc>& dvis, const std::string& folder,
                           const std::vector<input_entry>& headers);

}  // namespace morvane

// Reads the description of a DAG from its header: name, addresses, image size and port counts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "format/input_entry.h"
#include "format/records.h"

namespace morvane {

/// Sets the dvi_desc of a header's text. The index is that of its DVI, the position that of the DVI
/// in the package. Returns 0; or -1 at a DAG name that is too long, with the limit VAR_NAME
/// reported.
int parse_dag_description(dvi_desc& dvi, std::string_view header, std::int32_t index,
                          std::size_t position);

/// Appends one dvi_desc for every header of the folder, in the order of the list. A header that
/// cannot be read, or has no DAG name, gives a record without name, sizes and ports. Returns 0. At
/// a DAG name that is too long, reports the limit VAR_NAME, reads no more headers and returns -1.
int parse_dag_descriptions(std::vector<dvi_desc>& dvis, const std::string& folder,
                           const std::vector<input_entry>& headers);

}  // namespace morvane

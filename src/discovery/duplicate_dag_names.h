// Whether every header of a folder names a DAG of its own, which a package with vproc records asks
// for.
#pragma once

#include <string>
#include <vector>

#include "format/input_entry.h"

namespace morvane {

/// Returns 0 when the headers of the folder name different DAGs; or, at the first header that
/// repeats a name, prints "error: detection duplicate DAG NAME between file ..." and returns 1. A
/// header without a DAG name is passed over.
int check_duplicate_dag_names(const std::string& folder, const std::vector<input_entry>& headers);

}  // namespace morvane

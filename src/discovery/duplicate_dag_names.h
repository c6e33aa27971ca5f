// Checks that all headers of a folder have different DAG names. A package with vproc records needs
// that.
#pragma once

#include <string>
#include <vector>

#include "format/input_list.h"

namespace morvane {

/// Returns 0 if all headers of the folder have different DAG names. At the first header that
/// repeats a name, prints "error: detection duplicate DAG NAME between file ..." and returns 1. A
/// header without a DAG name is ignored.
int check_duplicate_dag_names(const std::string& folder, const input_list& headers);

}  // namespace morvane

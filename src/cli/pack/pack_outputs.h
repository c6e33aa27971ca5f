// Where a pack run writes.
#pragma once

#include <string>

#include "cli/files/atomic_replacement.h"
#include "cli/lint/lint_folder.h"

namespace morvane::cli {

struct pack_outputs {
  atomic_replacement package{};
  atomic_replacement depfile{};
};

/// Finds the places of both outputs; the path of the dependency file is empty when none is wanted.
/// Returns an exit status, status_failed after a message: when there is no such place, when an
/// output would take the place of an input or of the other output, or when the next run would take
/// it for an input.
int find_outputs(const std::string& package, const std::string& depfile,
                 const parsed_folder& parsed, pack_outputs& outputs);

}  // namespace morvane::cli

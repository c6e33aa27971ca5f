// morvane lint: tells what is wrong with a compiler output folder before it is packed.
#pragma once

#include "cli/findings/finding_output.h"
#include "cli/lint/lint_folder.h"
#include "cli/output/console.h"

namespace morvane::cli {

struct lint_options {
  lint_scope scope;
  finding_options findings{};
};

/// Writes what it finds. Returns the exit status: status_fine without errors.
int run_lint(const lint_options& options, console& streams);

}  // namespace morvane::cli

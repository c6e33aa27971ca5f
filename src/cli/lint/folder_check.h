// What the rules about the names in a folder share.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "cli/findings/findings.h"
#include "cli/lint/lint_folder.h"
#include "discovery/input_files.h"

namespace morvane::cli {

/// The files of the folder that is looked at.
struct folder_check {
  const lint_scope& scope;
  const folder_names& names;
  const finding_sink& sink;
};

/// A finding about a file of the folder, or about one that is missing there. Its name comes first,
/// as a finding refers to it only.
struct named_finding {
  const finding_kind* kind;
  std::string name;  // empty for the folder itself
  std::string text;
};

/// Tells the first of the findings, from which the others follow or which they repeat.
void report_group(const folder_check& check, const std::vector<named_finding>& group);

/// How many things a message lists.
inline constexpr std::size_t most_listed = 3;

/// "a, b, c and 5 more": the first of so many things, printable.
std::string listed(const std::vector<std::string>& first, std::size_t all);

}  // namespace morvane::cli

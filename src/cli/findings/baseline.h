// A file of accepted findings, which are known again when lines were added and numbers changed.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "cli/findings/findings.h"

namespace morvane::cli {

/// The entry of a finding: its code, its file as the folder names it, the name at its place, and
/// its text with "#" for every number outside quotes: "not-decimal net.h net_data_W: # is not
/// decimal: net_data_W becomes #". It holds no line break.
std::string baseline_entry(const finding& found, std::string_view folder);

/// The folder of a path, for the function above.
std::string_view folder_of(std::string_view path);

/// The accepted findings that did not occur yet: the line of each entry. An entry that stands
/// several times accepts as many findings.
using open_entries = std::multimap<std::string, std::uint32_t, std::less<>>;

/// Reads a file of entries, - for standard input. Returns 0 or an errno.
int read_baseline(const std::string& path, open_entries& entries);

/// Whether an entry accepts a finding. Such an entry is used up.
bool accepts(open_entries& entries, const std::string& entry);

/// The content of a file with these entries.
std::string baseline_text(std::vector<std::string> entries);

}  // namespace morvane::cli

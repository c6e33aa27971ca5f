// The names in a folder: which files are packed, and in which order.
#pragma once

#include <cstddef>
#include <string>

#include "cli/findings/findings.h"
#include "cli/lint/lint_folder.h"
#include "discovery/input_files.h"

namespace morvane::cli {

/// The DVIs of a folder in the order in which they are packed, and which headers they have.
struct folder_reading {
  input_list dvis{};          // without those that are certainly no images
  header_presence headers{};  // with all_marked: the headers are those with an underscore

  /// The name of the header of the DVI at a position.
  [[nodiscard]] std::string header(std::size_t position) const {
    return header_of(headers, dvis[position]);
  }

  /// Whether the folder has that header.
  [[nodiscard]] bool has_header(std::size_t position) const {
    return headers.all_marked ? headers.marked[position] : headers.plain[position];
  }
};

/// Finds among the names of a folder, which are sorted, what the pack run finds, and tells the sink
/// what is wrong with them. After an error the pack run reads less, or nothing.
folder_reading check_names(const lint_scope& scope, const folder_names& names,
                           const finding_sink& sink);

}  // namespace morvane::cli

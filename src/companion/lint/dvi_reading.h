// What is read of one DVI, whatever the others are: several are read at the same time.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "companion/described_dvi.h"
#include "companion/lint/dvi_rules.h"
#include "companion/lint/folder_rules.h"
#include "companion/lint/header_findings.h"
#include "companion/lint/header_reading.h"
#include "companion/lint/lint_folder.h"
#include "companion/port_flow.h"

namespace morvane::companion {

/// A port of a header; the name lies in the header.
struct read_port {
  object_kind kind;
  std::string_view name;
  port_flow flow;
};

/// Stays where it is: its parts point into its text.
struct dvi_reading {
  std::uint32_t position = 0;  // in the package
  std::string header_path{};
  std::string image_path{};
  std::string text{};    // of the header
  int header_error = 0;  // the errno of a header that cannot be read
  file_state header_state{};
  header_reading header{};
  std::vector<read_port> ports{};  // the inputs, then the outputs
  described_dvi described{};       // its records only if they are asked for
  image_file image{};
  header_findings findings{};
};

/// Reads the DVIs from a position on, as many as are worth reading at the same time: at least one.
/// Compares their headers with what C sees, and looks at their images. Of a DVI whose header is
/// missing only the position is set.
std::vector<dvi_reading> read_dvis(const lint_scope& scope, const folder_reading& files,
                                   std::uint32_t first, bool with_records);

/// Reads the header of an earlier DVI again: its description and its ports, without findings. To
/// keep them all takes too much memory.
void read_once_more(const lint_scope& scope, const folder_reading& files, std::uint32_t position,
                    dvi_reading& reading);

}  // namespace morvane::companion

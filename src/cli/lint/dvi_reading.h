// What is read of one DVI, whatever the others are.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "cli/lint/header/header_findings.h"
#include "cli/lint/header/header_reading.h"
#include "cli/lint/input_states.h"
#include "cli/lint/lint_folder.h"
#include "cli/lint/parsed_dvi.h"
#include "cli/package/port_flow.h"

namespace morvane::cli {

/// A header: its text, and its state, with an error if it cannot be read to its end.
struct header_file {
  std::string path{};
  std::string text{};
  file_state state{};
};
header_file load_header(const std::string& path);

/// A port of a header; the name lies in the header.
struct read_port {
  object_kind kind;
  std::string_view name;
  bool is_bitvector;
  port_flow flow;
};

/// What a header says; the texts lie in it.
struct dvi_reading {
  std::uint32_t position = 0;  // in the package
  header_reading header{};
  std::vector<read_port> ports{};  // the inputs, then the outputs
  parsed_dvi parsed{};             // its records only if they are asked for
  header_findings findings{};
};

/// Reads a header as the pack run does and compares that with what C sees. The index is that of the
/// DVI's file.
dvi_reading read_dvi(const lint_scope& scope, const header_file& file, std::int32_t index,
                     std::uint32_t position, bool with_records);

}  // namespace morvane::cli

// The comparison of what the pack run reads in a header with what a C compiler sees in it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "cli/lint/c/macro_index.h"
#include "cli/lint/header/header_findings.h"
#include "cli/lint/header/header_reading.h"
#include "cli/lint/header/line_index.h"
#include "cli/lint/header/macro_names.h"

namespace morvane::cli {

/// A macro that C and the pack run both take from the same line.
struct own_definition {
  object_kind kind;
  std::uint32_t block;
  const macro_row* row = nullptr;
  std::size_t place = 0;     // of the value
  std::string_view word{};   // the value that the pack run takes
  bool has_default = false;  // C gives the macro the value that its field has without it
};

/// The last definition of a macro in the block that is being read, and what replaced its value:
/// behind "#define net_data_W 40", the "idth" of "#define net_data_Width 7" does.
struct row_state {
  own_definition own{};
  std::string_view replacement{};  // empty if there is none
};

/// How far one parser is.
struct kind_cursor {
  std::size_t next_block = 0;
  std::size_t next_value = 0;
  std::size_t next_place = 0;     // in the header: no name or value that is left is before it
  bool is_repeated = false;       // whether another block has the name of this one
  std::uint64_t taken_rows = 0;   // of the block, a bit for each
  std::vector<row_state> rows{};  // one for each macro of the kind
};

/// The port that the last unknown macros belong to, if no line introduces it.
struct missing_block {
  std::string_view name{};
  std::size_t place = 0;              // of the first of them
  std::uint64_t rows = 0;             // which macros of a port, a bit for each
  std::optional<std::size_t> note{};  // the finding about the first of them, if notes are wanted
};

struct comparison {
  comparison(const header_reading& read, bool vproc, bool notes)
      : reading(read),
        with_vproc(vproc),
        with_notes(notes),
        macros(read.header),
        lines(read.header),
        names(read) {
    for (std::size_t i = 0; i < object_kinds; ++i) {
      if (!read.kinds.at(i).blocks.empty()) {
        const auto kind = static_cast<object_kind>(i);
        kinds.push_back(kind);
        cursors.at(i).rows.resize(macros_of(kind).size());
      }
    }
  }

  const header_reading& reading;
  bool with_vproc;
  bool with_notes;
  macro_index macros;
  line_index lines;
  block_names names;
  std::vector<object_kind> kinds{};  // that the header describes
  std::array<kind_cursor, object_kinds> cursors{};
  /// The definitions of macros that are defined more than once, or for more than one block.
  std::vector<own_definition> repeated{};
  /// The places of the names that #undef removes and no line defines again.
  std::unordered_map<std::string_view, std::size_t> undefined{};
  missing_block missing{};
  header_findings findings{};
  bool has_nul = false;

  [[nodiscard]] std::size_t place_of(std::string_view text) const {
    return static_cast<std::size_t>(text.data() - reading.header.data());
  }
  kind_cursor& cursor(object_kind kind) { return cursors.at(static_cast<std::size_t>(kind)); }
};

inline void report(comparison& header, const finding_kind* kind, std::size_t place,
                   std::string text) {
  header.findings.push_back({.kind = kind, .place = place, .text = std::move(text)});
}

/// What a block's record holds before its macros are read.
std::span<const std::byte> empty_record(object_kind kind);

/// "input data", "variable gain"; "the DAG".
std::string block_title(object_kind kind, const parsed_block& block);

/// "line 12"
std::string line_title(comparison& header, std::size_t place);

}  // namespace morvane::cli

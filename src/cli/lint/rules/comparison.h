// The comparison of what the pack run reads in a header with what a C compiler sees in it.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "cli/lint/c/c_lines.h"
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
  bool is_sure = true;       // no condition decides whether C has it
};

/// A value that is not taken from its own macro.
struct stray_value {
  const finding_kind* kind;
  std::string source;                  // what is read
  std::string_view word{};             // lies in the header
  std::optional<std::size_t> cause{};  // the place of the comment or condition around it
};

/// The last definition of a macro in the block that is being read, and what replaced its value:
/// behind "#define net_data_W 40", the "idth" of "#define net_data_Width 7" does.
struct row_state {
  own_definition own{};
  std::optional<stray_value> stray{};
};

/// How far one parser is.
struct kind_cursor {
  std::size_t next_block = 0;
  std::size_t next_value = 0;
  std::size_t next_place = 0;     // in the header: no name or value that is left is before it
  bool is_repeated = false;       // whether another block has the name of this one
  std::vector<row_state> rows{};  // one for each macro of the kind
};

/// A macro that C has and no block takes.
struct lost_macro {
  std::string_view name;  // lies in the header
  macro_parts parts;      // without a row if the ending is unknown
  bool is_known;          // whether a line introduces its block
  bool is_sure;           // no condition decides whether C has it
};

/// A port, and which of the macros that ports like it need it has.
struct port_macros_taken {
  object_kind kind;
  const parsed_block* block;
  std::uint64_t needed;
};

/// A macro that #undef removes.
struct removed_macro {
  std::size_t place;
  bool is_sure;
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
  /// The names that #undef removes and no line defines again.
  std::unordered_map<std::string_view, removed_macro> undefined{};
  std::vector<lost_macro> lost{};
  std::vector<port_macros_taken> ports{};
  header_findings findings{};
  /// The findings that others follow from, by the place of their cause.
  std::unordered_map<std::size_t, std::size_t> causes{};
  std::optional<std::size_t> conflict{};  // the place of the first conflict marker
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

/// A finding about a macro's line. What depends on a condition is no error.
inline header_finding line_finding(const finding_kind* kind, std::size_t place, std::string text,
                                   bool is_sure) {
  return {
      .kind = kind,
      .place = place,
      .text = std::move(text),
      .level = is_sure ? std::nullopt : std::optional(std::max(kind->level, severity::warning))};
}

/// Tells a finding that others follow from. If another is told at its place already, it is a part
/// of that.
void report_cause(comparison& header, header_finding found);

/// Tells a finding at the place of its cause, with a text of its own, if it is the first that
/// follows from that; otherwise makes it a part of the first.
void report_at_cause(comparison& header, std::size_t cause, std::string text,
                     header_finding effect);

/// The bit of a macro among those that a finding is about; none for a macro that is not the DAG's.
inline std::uint64_t dag_row(object_kind kind, const macro_row& row) {
  return kind == object_kind::dag ? std::uint64_t{1} << (&row - dag_macros.data()) : 0;
}

/// What a block's record holds before its macros are read.
std::span<const std::byte> empty_record(object_kind kind);

/// "input data", "variable gain"; "the DAG".
std::string block_title(object_kind kind, const parsed_block& block);

/// The last block of a family that is introduced before a place, and its kind; null if there is
/// none.
const parsed_block* block_above(const comparison& header, macro_family family, std::size_t place,
                                object_kind& kind);

/// Whether the parser of a kind gave up before a place: what follows was not read by it.
bool is_behind_stop(const comparison& header, object_kind kind, std::size_t place);

/// "line 12"
std::string line_title(comparison& header, std::size_t place);

}  // namespace morvane::cli

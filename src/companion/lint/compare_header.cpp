#include "companion/lint/compare_header.h"

#include <algorithm>

#include "companion/lint/c_conditions.h"
#include "companion/lint/c_lines.h"
#include "companion/lint/comparison.h"
#include "companion/lint/introduction_rules.h"
#include "companion/lint/missing_blocks.h"
#include "companion/lint/repeated_macros.h"
#include "companion/lint/taken_rules.h"
#include "companion/lint/unread_rules.h"
#include "companion/printable_text.h"
#include "format/length_limits.h"

namespace morvane::companion {

namespace {

/// What happened on a line, besides what C sees.
struct line_events {
  bool took_own = false;
  bool took_stray = false;
};

void judge_values(comparison& header, object_kind kind, const c_line& line, std::string_view text,
                  std::size_t end, line_events& events) {
  kind_cursor& cursor = header.cursor(kind);
  const kind_reading& reading = header.reading.of(kind);
  while (cursor.next_value < reading.values.size() &&
         reading.values[cursor.next_value].place < end) {
    const taken_value& taken = reading.values[cursor.next_value++];
    const line_value value{.kind = kind,
                           .block = static_cast<std::uint32_t>(cursor.next_block - 1),
                           .row = &macros_of(kind)[taken.row],
                           .word = header.reading.header.substr(taken.place, taken.length)};
    const bool is_own = judge_value(header, value, line, text);
    cursor.taken_rows |= std::uint64_t{1} << taken.row;
    events.took_own = events.took_own || is_own;
    events.took_stray = events.took_stray || !is_own;
  }
}

void judge_introductions(comparison& header, object_kind kind, const c_line& line,
                         std::string_view text, std::size_t end) {
  kind_cursor& cursor = header.cursor(kind);
  const auto& blocks = header.reading.of(kind).blocks;
  while (cursor.next_block < blocks.size() &&
         header.place_of(blocks[cursor.next_block].name) < end) {
    note_defaults(header, kind);
    judge_block_end(header, kind);
    const described_block& block = blocks[cursor.next_block++];
    cursor.is_repeated = header.names.is_repeated(family_of(kind), block.name);
    if (kind == object_kind::dag) {
      judge_dag_line(header, line, text);
    } else {
      judge_introduction(header, kind, block, line, text);
    }
  }
}

/// Judges what a parser took from a line. Most lines hold nothing of most kinds.
void judge_kind(comparison& header, object_kind kind, const c_line& line, std::string_view text,
                std::size_t end, line_events& events) {
  kind_cursor& cursor = header.cursor(kind);
  if (cursor.next_place >= end) {
    return;
  }
  judge_values(header, kind, line, text, end, events);
  judge_introductions(header, kind, line, text, end);
  const auto& [blocks, values, stop, is_stopped] = header.reading.of(kind);
  cursor.next_place = header.reading.header.size();
  if (cursor.next_value < values.size()) {
    cursor.next_place = values[cursor.next_value].place;
  }
  if (cursor.next_block < blocks.size()) {
    cursor.next_place =
        std::min(cursor.next_place, header.place_of(blocks[cursor.next_block].name));
  }
}

/// What is before "_DAG_NAME" in the macro that names the DAG, if it is another name.
std::string_view find_alias(const comparison& header, const c_line& line, std::string_view text) {
  const std::string_view name = header.reading.dag_name;
  const bool names_dag =
      !name.empty() && text.data() <= name.data() && name.data() < text.data() + text.size();
  if (!names_dag || line.kind != directive::define || !line.name.ends_with(dag_name_macro)) {
    return {};
  }
  const std::string_view alias = line.name.substr(0, line.name.size() - dag_name_macro.size());
  return alias == name ? std::string_view() : alias;
}

void judge_line(comparison& header, const c_line& line, std::string_view text, std::size_t end) {
  const std::size_t place = header.place_of(text);
  if (text.size() > line_limit.longest) {
    tell(header, kind_of("line-too-long"), place,
         joined("the line has ", text.size(), " bytes, and at most ", line_limit.longest,
                " are read: it is ignored"));
    return;
  }
  const std::size_t nul = header.has_nul ? text.find('\0') : std::string_view::npos;
  if (nul != std::string_view::npos) {
    tell(header, kind_of("nul-byte"), place + nul,
         "a byte of the line is 0: no value behind it is read");
  }
  line_events events;
  for (const object_kind kind : header.kinds) {
    judge_kind(header, kind, line, text, end, events);
  }
  if (!header.undefined.empty() && line.kind == directive::define &&
      line.seen != visibility::left_out) {
    header.undefined.erase(line.name);
  }
  if (!events.took_own && line.kind != directive::none) {
    judge_unread(header, line, text, events.took_stray);
  }
}

void judge_whole(comparison& header) {
  for (const object_kind kind : header.kinds) {
    note_defaults(header, kind);
    judge_block_end(header, kind);
  }
  judge_missing_block(header);
  judge_repeated(header);
  judge_undefined(header);
  judge_stops(header);
  const std::string_view text = header.reading.header;
  if (header.reading.dag_name.empty()) {
    tell(header, kind_of("no-dag-name"), 0,
         joined("no line has a value for ", dag_name_macro,
                ": the DAG gets no name, no image and no counted ports"));
  }
  if (header.with_notes && !text.empty() && !text.ends_with('\n')) {
    tell(header, kind_of("no-trailing-newline"), text.size() - 1,
         "the last line does not end in a newline: it is read all the same");
  }
}

}  // namespace

header_findings compare_header(const header_reading& reading, bool with_vproc, bool with_notes) {
  comparison header(reading, with_vproc, with_notes);
  header.prefixes.dag_name = reading.dag_name;
  const std::string_view text = reading.header;
  header.has_nul = text.find('\0') != std::string_view::npos;
  c_reader reader{.header = text, .macros = header.macros, .asked = macros_of_conditions(text)};
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t newline = std::min(text.find('\n', begin), text.size());
    const std::string_view line = text.substr(begin, newline - begin);
    const c_line seen = read_c_line(reader, line);
    if (header.prefixes.alias.empty()) {
      header.prefixes.alias = find_alias(header, seen, line);
    }
    judge_line(header, seen, line, newline);
    begin = newline + 1;
  }
  judge_whole(header);
  return std::move(header.findings);
}

}  // namespace morvane::companion

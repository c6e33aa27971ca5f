#include "cli/lint/rules/compare_header.h"

#include <algorithm>
#include <array>

#include "cli/lint/c/c_lines.h"
#include "cli/lint/rules/block_starts.h"
#include "cli/lint/rules/comparison.h"
#include "cli/lint/rules/file_rules.h"
#include "cli/lint/rules/ignored_macros.h"
#include "cli/lint/rules/incomplete_ports.h"
#include "cli/lint/rules/lost_macros.h"
#include "cli/lint/rules/repeated_macros.h"
#include "cli/lint/rules/used_values.h"
#include "cli/output/printable_text.h"
#include "format/length_limits.h"
#include "headers/dag_descriptions.h"
#include "headers/port_descriptions.h"
#include "headers/vproc_descriptions.h"

namespace morvane::cli {

namespace {

/// What happened on a line, besides what C sees.
struct line_events {
  bool took_own = false;
  bool took_stray = false;
};

void check_values(comparison& header, object_kind kind, const c_line& line, std::string_view text,
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
    const bool is_own = check_value(header, value, line, text);
    events.took_own = events.took_own || is_own;
    events.took_stray = events.took_stray || !is_own;
  }
}

void check_introductions(comparison& header, object_kind kind, const c_line& line,
                         std::string_view text, std::size_t end) {
  kind_cursor& cursor = header.cursor(kind);
  const auto& blocks = header.reading.of(kind).blocks;
  while (cursor.next_block < blocks.size() &&
         header.place_of(blocks[cursor.next_block].name) < end) {
    check_defaults(header, kind);
    check_block_end(header, kind);
    const parsed_block& block = blocks[cursor.next_block++];
    cursor.is_repeated = header.names.is_repeated(family_of(kind), block.name);
    if (kind == object_kind::dag) {
      check_dag_line(header, line, text);
    } else {
      check_introduction(header, kind, block, line, text);
    }
  }
}

/// Judges what a parser took from a line. Most lines hold nothing of most kinds.
void check_kind(comparison& header, object_kind kind, const c_line& line, std::string_view text,
                std::size_t end, line_events& events) {
  kind_cursor& cursor = header.cursor(kind);
  if (cursor.next_place >= end) {
    return;
  }
  check_values(header, kind, line, text, end, events);
  check_introductions(header, kind, line, text, end);
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

/// Whether the pack run would read something on a line, or C does.
bool holds_something(const c_line& line, std::string_view text) {
  constexpr std::array<std::string_view, 4> keys{input_ports.keyword, output_ports.keyword,
                                                 smb_keyword, dag_name_macro};
  return line.kind == directive::define || std::ranges::any_of(keys, [&](std::string_view key) {
           return text.find(key) != std::string_view::npos;
         });
}

void check_bytes(comparison& header, const c_line& line, std::string_view text) {
  const std::size_t place = header.place_of(text);
  const std::size_t nul = header.has_nul ? text.find('\0') : std::string_view::npos;
  if (nul != std::string_view::npos) {
    header.findings.push_back(line_finding(kind_of("nul-byte"), place + nul,
                                           "a byte of the line is 0: no value behind it is read",
                                           holds_something(line, text)));
  }
  if (line.state != visibility::in_comment && !header.conflict && is_conflict_marker(text)) {
    header.conflict = place;
  }
}

void check_line(comparison& header, const c_line& line, std::string_view text, std::size_t end) {
  if (text.size() > line_limit.longest) {
    header.findings.push_back(
        line_finding(kind_of("line-too-long"), header.place_of(text),
                     joined("the line has ", text.size(), " bytes, and at most ",
                            line_limit.longest, " are read: it is ignored"),
                     holds_something(line, text)));
    return;
  }
  check_bytes(header, line, text);
  line_events events;
  for (const object_kind kind : header.kinds) {
    check_kind(header, kind, line, text, end, events);
  }
  if (!header.undefined.empty() && line.kind == directive::define &&
      line.state != visibility::inactive) {
    header.undefined.erase(line.name);
  }
  if (!events.took_own && line.kind != directive::none) {
    check_unread(header, line, text, events.took_stray);
  }
}

/// Tells what about the whole header keeps it from being read as it is meant.
void check_file(comparison& header) {
  const std::string_view text = header.reading.header;
  if (header.reading.dag_name.empty()) {
    report(header, kind_of("no-dag-name"), 0,
           text.empty() ? "the header is empty: the DAG gets no name, no image and no ports"
                        : joined("no line has a value for ", dag_name_macro,
                                 ": the DAG gets no name, no image and no counted ports"));
  }
  if (header.conflict) {
    report(header, kind_of("conflict-marker"), *header.conflict,
           "a merge left this line here: both sides of the conflict are read");
  }
  if (header.with_notes && !text.empty() && !text.ends_with('\n')) {
    report(header, kind_of("no-trailing-newline"), text.size() - 1,
           "the last line does not end in a newline: it is read all the same");
  }
}

/// The place of the last line.
std::size_t last_line(std::string_view text) {
  text.remove_suffix(text.ends_with('\n') ? 1 : 0);
  const std::size_t newline = text.rfind('\n');
  return newline == std::string_view::npos ? 0 : newline + 1;
}

/// Tells which comments and conditions are open at the end, and which conditions were not.
void check_ends(comparison& header, const c_reader& reader) {
  if (reader.in_comment) {
    report_cause(header, {.kind = kind_of("in-comment"),
                          .place = reader.comment,
                          .text = "the comment that begins here has no end"});
  }
  if (!reader.conditions.empty()) {
    report_cause(header, {.kind = kind_of("unbalanced-condition"),
                          .place = last_line(header.reading.header),
                          .text = joined("the header ends here, but the condition on ",
                                         line_title(header, reader.conditions.back().place),
                                         " has no #endif: lines may be missing")});
  }
  if (reader.unopened) {
    report_cause(header, {.kind = kind_of("unbalanced-condition"),
                          .place = *reader.unopened,
                          .text = "no condition is open that this line could belong to"});
  }
}

void check_whole(comparison& header, const c_reader& reader) {
  for (const object_kind kind : header.kinds) {
    check_defaults(header, kind);
    check_block_end(header, kind);
  }
  check_ends(header, reader);
  check_lost_macros(header);
  check_repeated(header);
  check_incomplete_ports(header);
  check_undefined(header);
  check_stops(header);
  check_file(header);
}

}  // namespace

header_findings compare_header(const header_reading& reading, bool with_vproc, bool with_notes) {
  if (const std::string_view coding = coding_of(reading.header); !coding.empty()) {
    header_findings only;
    only.push_back(
        {.kind = kind_of("not-text"),
         .place = 0,
         .text = joined("the header is ", coding, ": nothing in it is read as it is meant")});
    return only;
  }
  comparison header(reading, with_vproc, with_notes);
  const std::string_view text = reading.header;
  header.has_nul = text.find('\0') != std::string_view::npos;
  c_reader reader{.header = text};
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t newline = std::min(text.find('\n', begin), text.size());
    const std::string_view line = text.substr(begin, newline - begin);
    const c_line seen = read_c_line(reader, line);
    check_line(header, seen, line, newline);
    begin = newline + 1;
  }
  check_whole(header, reader);
  return grouped(std::move(header.findings));
}

}  // namespace morvane::cli

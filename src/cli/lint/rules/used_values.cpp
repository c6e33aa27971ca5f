#include "cli/lint/rules/used_values.h"

#include <algorithm>

#include "cli/lint/c/c_text.h"
#include "cli/lint/rules/repeated_macros.h"
#include "cli/lint/rules/value_rules.h"
#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

const parsed_block& block_of(const comparison& header, const line_value& value) {
  return header.reading.of(value.kind).blocks[value.block];
}

/// What C puts in the macro's place, if the line defines the macro that the value belongs to.
struct own_value {
  bool is_own = false;
  std::string_view macro{};
  std::string_view c_value{};
};

own_value find_own(const comparison& header, const line_value& value, const c_line& line) {
  const bool is_visible = line.state == visibility::active || line.state == visibility::unknown;
  if (!is_visible || line.kind != directive::define) {
    return {};
  }
  const std::string_view block = block_of(header, value).name;
  const std::string_view suffix = value.row->suffix;
  if (is_macro_of(line.name, value.kind, block, suffix, header.reading.dag_name)) {
    return {.is_own = true, .macro = line.name, .c_value = line.value};
  }
  // A name that C cannot have, as "net_in.0_W", is compared as it is written.
  if (is_macro_of(line.word, value.kind, block, suffix, header.reading.dag_name)) {
    return {.is_own = true,
            .macro = line.word,
            .c_value = trimmed(line.value.substr(line.word.size() - line.name.size()))};
  }
  return {};
}

stray_value stray_define(comparison& header, const line_value& value, const c_line& line,
                         std::string_view text) {
  const std::string key = std::string(block_of(header, value).name).append(value.row->suffix);
  const std::size_t key_end = text.find(key) + key.size();
  const auto name_end = static_cast<std::size_t>(line.name.data() - text.data()) + line.name.size();
  if (key_end > name_end) {
    return {.kind = kind_of("two-macros-on-a-line"),
            .source = joined("what comes after ", printable(line.name)),
            .cause = header.place_of(line.name)};
  }
  return {.kind = key_end < name_end ? kind_of("longer-macro") : kind_of("wrong-name"),
          .source = printable(line.name)};
}

stray_value find_source(comparison& header, const line_value& value, const c_line& line,
                        std::string_view text) {
  switch (line.state) {
    case visibility::in_comment:
      return {.kind = kind_of("in-comment"), .source = "a comment", .cause = line.comment};
    case visibility::rest:
      return {.kind = kind_of("continued-line"), .source = "the rest of the line before"};
    case visibility::inactive:
      return {.kind = kind_of("conditional"),
              .source = joined("a line that the condition on ", line_title(header, line.condition),
                               " leaves out"),
              .cause = line.condition};
    default:
      break;
  }
  if (line.kind == directive::define) {
    return stray_define(header, value, line, text);
  }
  const bool is_in_comment =
      text.find("/*") < text.find(value.word) || text.find("//") < text.find(value.word);
  return {.kind = is_in_comment ? kind_of("in-comment") : kind_of("not-a-define"),
          .source = is_in_comment ? "a comment" : "a line without #define"};
}

/// Whether a stray value comes from a line that C takes for another macro.
bool is_other_macro(const stray_value& stray) {
  return stray.kind == kind_of("longer-macro") || stray.kind == kind_of("wrong-name") ||
         stray.kind == kind_of("two-macros-on-a-line");
}

row_state& state_of(comparison& header, object_kind kind, const macro_row& row) {
  return header.cursor(kind).rows.at(static_cast<std::size_t>(&row - macros_of(kind).data()));
}

/// What is read, as its cause is told: at the comment or condition around it.
std::string cause_text(const stray_value& stray) {
  if (stray.kind == kind_of("conditional")) {
    return "what this condition leaves out";
  }
  return stray.kind == kind_of("in-comment") ? "the comment that begins here" : stray.source;
}

/// What is wrong with a stray value at the end of its block: nothing if C gives the macro, or the
/// missing macro's field, the same value.
void check_stray(comparison& header, object_kind kind, const macro_row& row,
                 const row_state& state) {
  const stray_value& stray = *state.stray;
  const own_definition& own = state.own;
  const bool is_known = own.row != nullptr && !own.word.empty();
  const bool is_same = is_known ? is_same_value(row, own.word, stray.word)
                                : has_default_value(row, stray.word, empty_record(kind));
  if (is_same && (is_known || !is_other_macro(stray))) {
    return;
  }
  const parsed_block& block = header.reading.of(kind).blocks[header.cursor(kind).next_block - 1];
  std::string end = joined(
      " is read as ", printable(macro_name(kind, block.name, row.suffix, header.reading.dag_name)),
      ", which becomes ", packed_value(row, stray.word));
  if (is_known) {
    append_pieces(end, ", not ", packed_value(row, own.word), " as on ",
                  line_title(header, own.place));
  }
  header_finding found{.kind = stray.kind,
                       .place = header.place_of(stray.word),
                       .text = stray.source + end,
                       .level = is_same ? severity::warning : severity::error,
                       .dag_rows = dag_row(kind, row)};
  if (!stray.cause) {
    header.findings.push_back(std::move(found));
    return;
  }
  report_at_cause(header, *stray.cause, joined(cause_text(stray), end), std::move(found));
}

}  // namespace

bool check_value(comparison& header, const line_value& value, const c_line& line,
                 std::string_view text) {
  const own_value own = find_own(header, value, line);
  if (!own.is_own) {
    stray_value stray = find_source(header, value, line, text);
    stray.word = value.word;
    state_of(header, value.kind, *value.row).stray = std::move(stray);
    return false;
  }
  const std::size_t place = header.place_of(value.word);
  const bool is_sure = line.state == visibility::active;
  if (!is_sure) {
    const std::string macro = printable(own.macro);
    report_at_cause(
        header, line.condition,
        joined(macro, " depends on this condition, but is read in any case"),
        {.kind = kind_of("conditional"),
         .place = place,
         .text = joined(macro, " depends on the condition on ", line_title(header, line.condition),
                        ", but is read in any case")});
  }
  const auto fault = value.row->kind == macro_kind::text
                         ? compare_text(own.macro, value.word, own.c_value, header.macros)
                         : compare_number(*value.row, own.macro, value.word, line, own.c_value);
  if (fault) {
    header_finding found = line_finding(fault->kind, place, fault->text, is_sure);
    found.level = found.level ? found.level : fault->level;
    found.dag_rows = dag_row(value.kind, *value.row);
    header.findings.push_back(std::move(found));
  }
  state_of(header, value.kind, *value.row).stray.reset();
  remember_definition(header,
                      {.kind = value.kind,
                       .block = value.block,
                       .row = value.row,
                       .place = place,
                       .word = value.word,
                       .has_default = is_default(*value.row, own.c_value, empty_record(value.kind)),
                       .is_sure = is_sure});
  return true;
}

void check_block_end(comparison& header, object_kind kind) {
  const std::span<const macro_row> macros = macros_of(kind);
  for (std::size_t i = 0; i < macros.size(); ++i) {
    row_state& state = header.cursor(kind).rows.at(i);
    if (state.stray) {
      check_stray(header, kind, macros[i], state);
    }
    state = {};
  }
}

}  // namespace morvane::cli

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

/// A value that is not taken from its own macro.
struct stray_source {
  const finding_kind* kind;
  std::string text;
};

stray_source stray_define(comparison& header, const line_value& value, const c_line& line,
                          std::string_view text, const std::string& macro) {
  const std::string key = std::string(block_of(header, value).name).append(value.row->suffix);
  const std::size_t key_end = text.find(key) + key.size();
  const auto name_end = static_cast<std::size_t>(line.name.data() - text.data()) + line.name.size();
  if (key_end > name_end) {
    return {kind_of("two-macros-on-a-line"),
            joined("what comes after ", printable(line.name), " is read as ", printable(macro))};
  }
  const std::string_view rest = text.substr(key_end, name_end - key_end);
  const bool is_longer = !rest.empty();
  return {is_longer ? kind_of("longer-macro") : kind_of("wrong-name"),
          joined(printable(line.name), " is read as ", printable(macro))};
}

stray_source find_source(comparison& header, const line_value& value, const c_line& line,
                         std::string_view text, const std::string& macro) {
  const std::string end = joined(" is read as ", printable(macro));
  switch (line.state) {
    case visibility::in_comment:
      return {kind_of("in-comment"), joined("a comment", end)};
    case visibility::rest:
      return {kind_of("continued-line"), joined("the rest of the line before", end)};
    case visibility::inactive:
      return {kind_of("conditional"),
              joined("a line that the condition on ", line_title(header, line.condition),
                     " leaves out", end)};
    default:
      break;
  }
  if (line.kind == directive::define) {
    return stray_define(header, value, line, text, macro);
  }
  const bool is_in_comment =
      text.find("/*") < text.find(value.word) || text.find("//") < text.find(value.word);
  return is_in_comment
             ? stray_source{kind_of("in-comment"), joined("a comment", end)}
             : stray_source{kind_of("not-a-define"), joined("a line without #define", end)};
}

void keep_stray(comparison& header, const line_value& value) {
  const auto row = static_cast<std::size_t>(value.row - macros_of(value.kind).data());
  header.cursor(value.kind).rows.at(row).replacement = value.word;
}

}  // namespace

bool check_value(comparison& header, const line_value& value, const c_line& line,
                 std::string_view text) {
  const std::size_t place = header.place_of(value.word);
  const own_value own = find_own(header, value, line);
  if (!own.is_own) {
    const std::string macro = macro_name(value.kind, block_of(header, value).name,
                                         value.row->suffix, header.reading.dag_name);
    const stray_source source = find_source(header, value, line, text, macro);
    report(header, source.kind, place,
           joined(source.text, ", which becomes ", packed_value(*value.row, value.word)));
    keep_stray(header, value);
    return false;
  }
  if (line.state == visibility::unknown) {
    report(header, kind_of("conditional"), place,
           joined(printable(own.macro), " depends on the condition on ",
                  line_title(header, line.condition), ", but is read in any case"));
  }
  const auto fault = value.row->kind == macro_kind::text
                         ? compare_text(own.macro, value.word, own.c_value, header.macros)
                         : compare_number(*value.row, own.macro, value.word, line, own.c_value);
  if (fault) {
    report(header, fault->kind, place, fault->text);
  }
  remember_definition(
      header, {.kind = value.kind,
               .block = value.block,
               .row = value.row,
               .place = place,
               .word = value.word,
               .has_default = is_default(*value.row, own.c_value, empty_record(value.kind))});
  return true;
}

void check_block_end(comparison& header, object_kind kind) {
  kind_cursor& cursor = header.cursor(kind);
  const std::span<const macro_row> macros = macros_of(kind);
  for (std::size_t i = 0; i < macros.size(); ++i) {
    row_state& state = cursor.rows.at(i);
    const own_definition& own = state.own;
    if (own.row == nullptr && state.replacement.empty()) {
      continue;
    }
    if (own.row != nullptr && !state.replacement.empty() &&
        !is_same_value(macros[i], own.word, state.replacement)) {
      const parsed_block& block = header.reading.of(kind).blocks[own.block];
      report(
          header, kind_of("overwritten"), own.place,
          joined(printable(macro_name(kind, block.name, macros[i].suffix, header.reading.dag_name)),
                 " is ", packed_value(macros[i], own.word), " here, but ",
                 line_title(header, header.place_of(state.replacement)), " changes it to ",
                 packed_value(macros[i], state.replacement)));
    }
    state = {};
  }
  cursor.taken_rows = 0;
}

}  // namespace morvane::cli

#include "cli/lint/rules/ignored_macros.h"

#include <algorithm>

#include "cli/lint/c/c_number.h"
#include "cli/lint/c/c_text.h"
#include "cli/lint/rules/repeated_macros.h"
#include "cli/lint/rules/value_rules.h"
#include "cli/output/printable_text.h"
#include "headers/dag_descriptions.h"

namespace morvane::cli {

namespace {

/// A macro of a known block, and its line.
struct unread_macro {
  const c_line& line;
  std::string_view text;
  std::size_t place;  // of the name
  macro_parts parts;
};

/// The block of a kind that a parser is in; null between blocks.
const parsed_block* open_block(comparison& header, object_kind kind, std::size_t place) {
  const std::size_t next = header.cursor(kind).next_block;
  if (next == 0) {
    return nullptr;
  }
  const parsed_block& block = header.reading.of(kind).blocks[next - 1];
  return place < block.end && header.place_of(block.name) < place ? &block : nullptr;
}

bool is_sure(const unread_macro& macro) {
  return macro.line.state == visibility::active;
}

/// Why a macro is not read.
header_finding macro_finding(const unread_macro& macro, const finding_kind* kind,
                             std::string text) {
  header_finding found = line_finding(kind, macro.place, std::move(text), is_sure(macro));
  if (macro.parts.family == macro_family::dag) {
    found.dag_rows = dag_row(object_kind::dag, *macro.parts.row);
  }
  return found;
}

void report(comparison& header, const unread_macro& macro, const finding_kind* kind,
            std::string text) {
  header.findings.push_back(macro_finding(macro, kind, std::move(text)));
}

bool is_empty_text(const unread_macro& macro) {
  const auto literal = c_string_of(macro.line.value);
  return macro.parts.row->kind == macro_kind::text && literal && literal->empty();
}

bool holds_only_separators(const unread_macro& macro) {
  const bool is_text = macro.parts.row->kind == macro_kind::text;
  std::string_view word;
  split_line(macro.line.value, is_text ? layer_name_delimiters : macro_delimiters,
             std::span(&word, 1));
  return word.empty();
}

/// In the own block, or among the DAG's macros.
void check_in_block(comparison& header, const unread_macro& macro, object_kind kind,
                    std::uint32_t index) {
  const auto row = static_cast<std::size_t>(macro.parts.row - macros_of(kind).data());
  const row_state& state = header.cursor(kind).rows.at(row);
  const std::string name = printable(macro.line.name);
  if (is_empty_text(macro)) {
    if (state.own.row != nullptr && !state.own.word.empty()) {
      return report(header, macro, kind_of("no-value"),
                    joined(name, " is empty here, but stays ",
                           packed_value(*macro.parts.row, state.own.word)));
    }
    remember_definition(header, {.kind = kind,
                                 .block = index,
                                 .row = macro.parts.row,
                                 .place = macro.place,
                                 .word = {},
                                 .has_default = true,
                                 .is_sure = is_sure(macro)});
    return;
  }
  if (macro.line.value.empty() && !macro.line.continued) {
    const std::string now = state.own.row != nullptr
                                ? packed_value(*macro.parts.row, state.own.word)
                                : default_value(*macro.parts.row, empty_record(kind));
    return report(header, macro, kind_of("no-value"),
                  joined(name, " has no value: it stays ", now));
  }
  if (macro.text.find('\0') != std::string_view::npos) {
    return;  // the NUL was told already
  }
  if (holds_only_separators(macro)) {
    return report(header, macro, kind_of("no-value"),
                  joined("the value of ", name, ", ", printable(macro.line.value),
                         ", holds only separators: it is not read"));
  }
  report_cause(header,
               macro_finding(macro, kind_of("two-macros-on-a-line"),
                             joined(name, " is not read: something else on its line is read")));
}

void check_known_block(comparison& header, const unread_macro& macro) {
  for (const object_kind kind :
       {object_kind::input, object_kind::output, object_kind::variable, object_kind::smb}) {
    const parsed_block* const open = open_block(header, kind, macro.place);
    if (family_of(kind) == macro.parts.family && open != nullptr &&
        open->name == macro.parts.block) {
      if (!is_behind_stop(header, kind, macro.place)) {
        check_in_block(header, macro, kind,
                       static_cast<std::uint32_t>(header.cursor(kind).next_block - 1));
      }
      return;
    }
  }
  header.lost.push_back(
      {.name = macro.line.name, .parts = macro.parts, .is_known = true, .is_sure = is_sure(macro)});
}

void check_dag_macro(comparison& header, const unread_macro& macro) {
  if (is_behind_stop(header, object_kind::dag, macro.place)) {
    return;
  }
  const std::size_t named_at = header.place_of(header.reading.dag_name);
  if (header.lines.line(macro.place) <= header.lines.line(named_at)) {
    return report(header, macro, kind_of("name-before-dag-name"),
                  joined(printable(macro.line.name), " is not read: it must come after ",
                         line_title(header, named_at), ", which names the DAG"));
  }
  check_in_block(header, macro, object_kind::dag, 0);
}

/// Another macro that names a DAG.
void check_dag_name(comparison& header, const c_line& line, std::size_t place) {
  const auto literal = c_string_of(line.value);
  if (line.value.empty() || (literal && literal->empty())) {
    report(header, kind_of("no-value"), place,
           joined(printable(line.name), " has no value: it names no DAG"));
  } else if (!header.reading.dag_name.empty() &&
             literal.value_or(line.value) != header.reading.dag_name) {
    report(header, kind_of("second-dag"), place,
           joined(printable(line.name), " names another DAG, but ",
                  line_title(header, header.place_of(header.reading.dag_name)), " names ",
                  in_quotes(header.reading.dag_name),
                  " already: what follows is packed as a part of that"));
  }
}

/// What a macro belongs to; without a row if that is nothing that the header introduces.
macro_parts known_parts(const comparison& header, std::string_view name) {
  for (const macro_family family :
       {macro_family::dag, macro_family::port, macro_family::variable, macro_family::smb}) {
    const macro_parts parts = parts_of(name, family, header.reading.dag_name, header.names);
    if (parts.row != nullptr) {
      return parts;
    }
  }
  return {};
}

/// What a macro that belongs to nothing known would be as one of a port; without a row if it cannot
/// be one.
macro_parts port_parts(const comparison& header, std::string_view macro) {
  const auto* const row = std::ranges::find_if(
      port_macros, [&](const macro_row& each) { return macro.ends_with(each.suffix); });
  const std::string_view dag = header.reading.dag_name;
  const std::size_t begin = dag.size() + 1;
  if (dag.empty() || row == port_macros.end() || macro.size() <= begin + row->suffix.size() ||
      !macro.starts_with(dag) || macro[dag.size()] != '_') {
    return {.family = macro_family::port};
  }
  return {.family = macro_family::port,
          .row = &*row,
          .block = macro.substr(begin, macro.size() - begin - row->suffix.size())};
}

/// Judges a macro of a known block. Returns whether it is one.
bool check_known_macro(comparison& header, const c_line& line, std::string_view text) {
  const macro_parts parts = known_parts(header, line.name);
  if (parts.row == nullptr) {
    return false;
  }
  const unread_macro macro{
      .line = line, .text = text, .place = header.place_of(line.name), .parts = parts};
  parts.family == macro_family::dag ? check_dag_macro(header, macro)
                                    : check_known_block(header, macro);
  return true;
}

void check_definition(comparison& header, const c_line& line, std::string_view text) {
  if (line.name.ends_with(dag_name_macro)) {
    if (!header.reading.dag_name.empty() && text.data() <= header.reading.dag_name.data() &&
        header.reading.dag_name.data() < text.data() + text.size()) {
      return;  // this line names the DAG
    }
    check_dag_name(header, line, header.place_of(line.name));
  } else if (!check_known_macro(header, line, text)) {
    header.lost.push_back({.name = line.name,
                           .parts = port_parts(header, line.name),
                           .is_known = false,
                           .is_sure = line.state == visibility::active});
  }
}

/// A later definition makes the removal harmless.
void check_undefinition(comparison& header, const c_line& line) {
  if (known_parts(header, line.name).row != nullptr) {
    header.undefined.insert_or_assign(line.name,
                                      removed_macro{.place = header.place_of(line.name),
                                                    .is_sure = line.state == visibility::active});
  }
}

}  // namespace

void check_unread(comparison& header, const c_line& line, std::string_view text, bool took_stray) {
  const bool is_visible = line.state == visibility::active || line.state == visibility::unknown;
  if (!is_visible || line.name.empty()) {
    return;
  }
  if (line.kind == directive::undef) {
    check_undefinition(header, line);
  } else if (line.kind == directive::define && took_stray) {
    check_known_macro(header, line, text);
  } else if (line.kind == directive::define) {
    check_definition(header, line, text);
  }
}

void check_undefined(comparison& header) {
  for (const auto& [name, removed] : header.undefined) {
    header.findings.push_back(line_finding(
        kind_of("undefined-macro"), removed.place,
        joined("#undef is not read: ", printable(name), " stays as it is"), removed.is_sure));
  }
}

}  // namespace morvane::cli

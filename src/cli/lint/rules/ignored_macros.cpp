#include "cli/lint/rules/ignored_macros.h"

#include "cli/lint/c/c_number.h"
#include "cli/lint/c/c_text.h"
#include "cli/lint/rules/repeated_macros.h"
#include "cli/lint/rules/unknown_macros.h"
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

/// Whether the parser of a kind gave up before a place: what follows was not read by it.
bool is_behind_stop(const comparison& header, object_kind kind, std::size_t place) {
  const kind_reading& reading = header.reading.of(kind);
  return reading.is_stopped && place >= reading.stop;
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
  const bool is_taken = (header.cursor(kind).taken_rows >> row & 1U) != 0;
  if (is_empty_text(macro)) {
    if (is_taken && state.own.row != nullptr && !state.own.word.empty()) {
      report(header, kind_of("no-value"), macro.place,
             joined(name, " is empty here, but stays ",
                    packed_value(*macro.parts.row, state.own.word)));
      return;
    }
    remember_definition(header, {.kind = kind,
                                 .block = index,
                                 .row = macro.parts.row,
                                 .place = macro.place,
                                 .word = {},
                                 .has_default = true});
    return;
  }
  if (macro.line.value.empty() && !macro.line.continued) {
    const std::string now = is_taken && state.own.row != nullptr
                                ? packed_value(*macro.parts.row, state.own.word)
                                : default_value(*macro.parts.row, empty_record(kind));
    report(header, kind_of("no-value"), macro.place, joined(name, " has no value: it stays ", now));
    return;
  }
  if (macro.text.find('\0') != std::string_view::npos) {
    return;  // the NUL was told already
  }
  if (holds_only_separators(macro)) {
    report(header, kind_of("no-value"), macro.place,
           joined("the value of ", name, ", ", printable(macro.line.value),
                  ", holds only separators: it is not read"));
    return;
  }
  report(header, kind_of("two-macros-on-a-line"), macro.place,
         joined(name, " is not read: something else on its line is read in its place"));
}

void check_outside(comparison& header, const unread_macro& macro) {
  // The last block of the name before the macro, or else the first behind it.
  object_kind kind{};
  const parsed_block* nearest = nullptr;
  header.names.for_each(
      macro.parts.family, macro.parts.block, [&](const block_names::entry& entry) {
        const parsed_block& block = header.reading.of(entry.kind).blocks[entry.index];
        const bool is_before = header.place_of(block.name) < macro.place;
        const bool known_is_before =
            nearest != nullptr && header.place_of(nearest->name) < macro.place;
        const bool is_later =
            nearest != nullptr && header.place_of(block.name) > header.place_of(nearest->name);
        if (nearest == nullptr || (is_before && (!known_is_before || is_later)) ||
            (!is_before && !known_is_before && !is_later)) {
          nearest = &block;
          kind = entry.kind;
        }
      });
  if (nearest == nullptr || is_behind_stop(header, kind, macro.place)) {
    return;
  }
  const std::string title = block_title(kind, *nearest);
  const std::string reason = header.place_of(nearest->name) > macro.place
                                 ? joined("comes before the block of ", title, ", which begins on ",
                                          line_title(header, header.place_of(nearest->name)))
                                 : joined("comes after the block of ", title, ", which ended on ",
                                          line_title(header, nearest->end));
  report(header, kind_of("outside-any-block"), macro.place,
         joined(printable(macro.line.name), " is not read: it ", reason));
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
  check_outside(header, macro);
}

void check_dag_macro(comparison& header, const unread_macro& macro) {
  if (is_behind_stop(header, object_kind::dag, macro.place)) {
    return;
  }
  const std::size_t named_at = header.place_of(header.reading.dag_name);
  if (header.lines.line(macro.place) <= header.lines.line(named_at)) {
    report(header, kind_of("name-before-dag-name"), macro.place,
           joined(printable(macro.line.name), " is not read: it must come after ",
                  line_title(header, named_at), ", which names the DAG"));
    return;
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
    report(header, kind_of("defined-twice"), place,
           joined(printable(line.name),
                  " is not read: ", line_title(header, header.place_of(header.reading.dag_name)),
                  " names the DAG already, ", in_quotes(header.reading.dag_name)));
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

void check_definition(comparison& header, const c_line& line, std::string_view text) {
  const std::size_t place = header.place_of(line.name);
  if (line.name.ends_with(dag_name_macro)) {
    if (!header.reading.dag_name.empty() && text.data() <= header.reading.dag_name.data() &&
        header.reading.dag_name.data() < text.data() + text.size()) {
      return;  // this line names the DAG
    }
    check_dag_name(header, line, place);
    return;
  }
  if (const macro_parts parts = known_parts(header, line.name); parts.row != nullptr) {
    const unread_macro macro{.line = line, .text = text, .place = place, .parts = parts};
    parts.family == macro_family::dag ? check_dag_macro(header, macro)
                                      : check_known_block(header, macro);
    return;
  }
  check_unknown_macro(header, line, place);
}

/// A later definition makes the removal harmless.
void check_undefinition(comparison& header, const c_line& line) {
  if (known_parts(header, line.name).row != nullptr) {
    header.undefined.insert_or_assign(line.name, header.place_of(line.name));
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
  } else if (line.kind == directive::define && !took_stray) {
    check_definition(header, line, text);
  }
}

void check_undefined(comparison& header) {
  for (const auto& [name, place] : header.undefined) {
    report(header, kind_of("undefined-macro"), place,
           joined("#undef is not read: ", printable(name), " stays as it is"));
  }
}

}  // namespace morvane::cli

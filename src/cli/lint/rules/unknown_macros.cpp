#include "cli/lint/rules/unknown_macros.h"

#include <algorithm>
#include <array>

#include "cli/lint/c/c_text.h"
#include "cli/output/printable_text.h"
#include "format/length_limits.h"

namespace morvane::cli {

namespace {

/// Whether a macro that belongs to nothing is probably meant for the block above it.
std::optional<header_finding> misspelling_of(comparison& header, const lost_macro& macro) {
  const std::size_t place = header.place_of(macro.name);
  for (const macro_family family :
       {macro_family::port, macro_family::variable, macro_family::smb}) {
    object_kind kind{};
    const parsed_block* const block = block_above(header, family, place, kind);
    if (block == nullptr) {
      continue;
    }
    for (const macro_row& row : macros_of(kind)) {
      const std::string meant = macro_name(kind, block->name, row.suffix, header.reading.dag_name);
      const bool has_suffix = macro.name.ends_with(row.suffix);
      const std::string_view stem =
          has_suffix ? macro.name.substr(0, macro.name.size() - row.suffix.size()) : macro.name;
      const std::string_view meant_stem =
          std::string_view(meant).substr(0, meant.size() - (has_suffix ? row.suffix.size() : 0));
      const bool is_near = has_suffix ? is_nearly(stem, meant_stem) || stem == block->name
                                      : is_same_but_case(macro.name, meant);
      if (is_near && stem != meant_stem) {
        return line_finding(
            kind_of("wrong-name"), place,
            joined(printable(macro.name), " is not read: the block above it is that of ",
                   block_title(kind, *block), ", whose macro is ", printable(meant)),
            macro.is_sure);
      }
    }
  }
  return std::nullopt;
}

/// Whether an ending is probably meant for one that is read. Short ones are too near to each other.
bool is_misspelled_ending(std::string_view ending, std::string_view suffix) {
  constexpr std::size_t long_enough = 6;  // bytes
  return suffix.size() >= long_enough && is_nearly(ending, suffix);
}

/// A macro of the DAG, or of the block above it, with an ending that is nearly right.
std::optional<header_finding> wrong_ending_of(comparison& header, const lost_macro& macro) {
  const std::size_t place = header.place_of(macro.name);
  const parsed_block dag{.name = header.reading.dag_name, .end = 0, .is_counted = true};
  for (const macro_family family :
       {macro_family::port, macro_family::variable, macro_family::smb, macro_family::dag}) {
    object_kind kind = object_kind::dag;
    const parsed_block* const block =
        family == macro_family::dag ? &dag : block_above(header, family, place, kind);
    if (block == nullptr || block->name.empty()) {
      continue;
    }
    const std::string stem = macro_name(kind, block->name, "", header.reading.dag_name);
    if (!macro.name.starts_with(stem)) {
      continue;
    }
    const std::string_view ending = macro.name.substr(stem.size());
    const auto macros = macros_of(kind);
    const auto row = std::ranges::find_if(
        macros, [&](const macro_row& each) { return is_misspelled_ending(ending, each.suffix); });
    if (row != macros.end()) {
      header_finding found = line_finding(
          kind_of("wrong-name"), place,
          joined(printable(macro.name), " is not read: its ending is unknown, and the macro of ",
                 block_title(kind, *block), " is ", printable(stem + std::string(row->suffix))),
          macro.is_sure);
      found.dag_rows = dag_row(kind, *row);
      return found;
    }
  }
  return std::nullopt;
}

/// A macro of the DAG with a name that is nearly that of the DAG.
std::optional<header_finding> wrong_dag_of(const comparison& header, const lost_macro& macro) {
  const std::string_view dag = header.reading.dag_name;
  for (const macro_row& row : dag_macros) {
    const bool is_of_dag = macro.name.ends_with(row.suffix);
    const std::string_view stem =
        macro.name.substr(0, macro.name.size() - (is_of_dag ? row.suffix.size() : 0));
    if (is_of_dag && !dag.empty() && is_nearly(stem, dag)) {
      header_finding found =
          line_finding(kind_of("wrong-name"), header.place_of(macro.name),
                       joined(printable(macro.name), " is not read: the macro of the DAG is ",
                              printable(dag), row.suffix),
                       macro.is_sure);
      found.dag_rows = dag_row(object_kind::dag, row);
      return found;
    }
  }
  return std::nullopt;
}

/// Whether a compiler's macro begins with the name of the DAG.
bool is_of_dag(const comparison& header, std::string_view name) {
  const std::string_view dag = header.reading.dag_name;
  return !dag.empty() && name.size() > dag.size() && name.starts_with(dag) &&
         name[dag.size()] == '_';
}

/// The endings of macros that compilers write for others than the pack run.
constexpr std::array<std::string_view, 1> endings_for_others{"_dagbin_size"};

bool is_for_others(const comparison& header, std::string_view name) {
  const bool is_smb = !header.with_vproc && name.ends_with(smb_macros[0].suffix);
  return is_smb || std::ranges::any_of(endings_for_others, [&](std::string_view ending) {
           return name.ends_with(ending);
         });
}

/// A macro of a port whose name a blank divides: "#define net_data _W 40".
std::optional<header_finding> divided_name_of(comparison& header, const lost_macro& macro) {
  const std::size_t place = header.place_of(macro.name);
  const std::string_view rest = header.reading.header.substr(place + macro.name.size());
  const std::string_view ending =
      leading_name(trimmed(rest.substr(0, std::min(rest.find('\n'), line_limit.longest))));
  const std::string whole = std::string(macro.name).append(ending);
  if (ending.empty() ||
      parts_of(whole, macro_family::port, header.reading.dag_name, header.names).row == nullptr) {
    return std::nullopt;
  }
  return line_finding(kind_of("wrong-name"), place,
                      joined(printable(whole), " is not read: a blank divides its name"),
                      macro.is_sure);
}

}  // namespace

std::optional<header_finding> misnaming_of(comparison& header, const lost_macro& macro) {
  if (is_for_others(header, macro.name)) {
    return std::nullopt;
  }
  if (auto found = divided_name_of(header, macro)) {
    return found;
  }
  if (auto found = misspelling_of(header, macro)) {
    return found;
  }
  if (auto found = wrong_ending_of(header, macro)) {
    return found;
  }
  return wrong_dag_of(header, macro);
}

void note_unknown(comparison& header, const lost_macro& macro) {
  if (header.with_notes && is_of_dag(header, macro.name) && !is_for_others(header, macro.name)) {
    report(header, kind_of("unknown-macro"), header.place_of(macro.name),
           joined(printable(macro.name), " belongs to nothing that the header introduces, ",
                  "or has an unknown ending: it is not read"));
  }
}

}  // namespace morvane::cli

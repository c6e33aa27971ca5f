#include "cli/lint/rules/unknown_macros.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

/// The last block that was introduced before the line, of a family.
const parsed_block* block_above(comparison& header, macro_family family, object_kind& kind) {
  const parsed_block* last = nullptr;
  for (const object_kind each :
       {object_kind::input, object_kind::output, object_kind::variable, object_kind::smb}) {
    const std::size_t next = header.cursor(each).next_block;
    if (family_of(each) != family || next == 0) {
      continue;
    }
    const parsed_block& block = header.reading.of(each).blocks[next - 1];
    if (last == nullptr || last->name.data() < block.name.data()) {
      last = &block;
      kind = each;
    }
  }
  return last;
}

/// Whether a macro that belongs to nothing is probably meant for the block above it.
bool check_misspelling(comparison& header, const c_line& line, std::size_t place) {
  for (const macro_family family :
       {macro_family::port, macro_family::variable, macro_family::smb}) {
    object_kind kind{};
    const parsed_block* const block = block_above(header, family, kind);
    if (block == nullptr) {
      continue;
    }
    for (const macro_row& row : macros_of(kind)) {
      const std::string meant = macro_name(kind, block->name, row.suffix, header.reading.dag_name);
      const bool has_suffix = line.name.ends_with(row.suffix);
      const std::string_view stem =
          has_suffix ? line.name.substr(0, line.name.size() - row.suffix.size()) : line.name;
      const std::string_view meant_stem =
          std::string_view(meant).substr(0, meant.size() - (has_suffix ? row.suffix.size() : 0));
      const bool is_near = has_suffix ? is_nearly(stem, meant_stem) || stem == block->name
                                      : is_same_but_case(line.name, meant);
      if (is_near && stem != meant_stem) {
        report(header, kind_of("wrong-name"), place,
               joined(printable(line.name), " is not read: the block above it is that of ",
                      block_title(kind, *block), ", whose macro is ", printable(meant)));
        return true;
      }
    }
  }
  return false;
}

/// Whether an ending is probably meant for one that is read. Short ones are too near to each other.
bool is_misspelled_ending(std::string_view ending, std::string_view suffix) {
  constexpr std::size_t long_enough = 6;  // bytes
  return suffix.size() >= long_enough && is_nearly(ending, suffix);
}

/// A macro of the DAG, or of the block above the line, with an ending that is nearly right.
bool check_ending(comparison& header, const c_line& line, std::size_t place) {
  const parsed_block dag{.name = header.reading.dag_name, .end = 0, .is_counted = true};
  for (const macro_family family :
       {macro_family::port, macro_family::variable, macro_family::smb, macro_family::dag}) {
    object_kind kind = object_kind::dag;
    const parsed_block* const block =
        family == macro_family::dag ? &dag : block_above(header, family, kind);
    if (block == nullptr || block->name.empty()) {
      continue;
    }
    const std::string stem = macro_name(kind, block->name, "", header.reading.dag_name);
    if (!line.name.starts_with(stem)) {
      continue;
    }
    const std::string_view ending = line.name.substr(stem.size());
    const auto macros = macros_of(kind);
    const auto row = std::ranges::find_if(
        macros, [&](const macro_row& each) { return is_misspelled_ending(ending, each.suffix); });
    if (row != macros.end()) {
      report(header, kind_of("wrong-name"), place,
             joined(printable(line.name), " is not read: its ending is unknown, and the macro of ",
                    block_title(kind, *block), " is ", printable(stem + std::string(row->suffix))));
      return true;
    }
  }
  return false;
}

/// Whether a compiler's macro begins with the name of the DAG.
bool is_of_dag(const comparison& header, std::string_view name) {
  const std::string_view dag = header.reading.dag_name;
  return !dag.empty() && name.size() > dag.size() && name.starts_with(dag) &&
         name[dag.size()] == '_';
}

// So many different macros of a port have one name by intention. With fewer, something else may be
// meant, such as net_frames_W.
constexpr int enough_macros = 3;

/// The macro's row among those of a port, and the name before it. Null for other macros.
macro_parts port_parts(const comparison& header, std::string_view macro) {
  const auto* const row = std::ranges::find_if(
      port_macros, [&](const macro_row& each) { return macro.ends_with(each.suffix); });
  const std::size_t begin = header.reading.dag_name.size() + 1;
  if (row == port_macros.end() || !is_of_dag(header, macro) ||
      macro.size() <= begin + row->suffix.size()) {
    return {.family = macro_family::port};
  }
  return {.family = macro_family::port,
          .row = &*row,
          .block = macro.substr(begin, macro.size() - begin - row->suffix.size())};
}

/// Takes up a macro that may be one of a port without a line that introduces it.
void take_unknown_macro(comparison& header, std::string_view name, std::size_t place) {
  const macro_parts parts = port_parts(header, name);
  if (parts.row == nullptr) {
    return;
  }
  if (header.missing.name != parts.block) {
    const std::size_t last = header.findings.size() - 1;
    const bool has_note = !header.findings.empty() && header.findings[last].place == place;
    check_missing_block(header);
    header.missing = {.name = parts.block, .place = place};
    if (has_note) {
      header.missing.note = last;
    }
  }
  header.missing.rows |= std::uint64_t{1} << (parts.row - port_macros.data());
}

}  // namespace

void check_unknown_macro(comparison& header, const c_line& line, std::size_t place) {
  if (check_misspelling(header, line, place) || check_ending(header, line, place)) {
    return;
  }
  const bool is_of_smb = !header.with_vproc && line.name.ends_with(smb_macros[0].suffix);
  if (header.with_notes && is_of_dag(header, line.name) && !is_of_smb) {
    report(header, kind_of("unknown-macro"), place,
           joined(printable(line.name), " belongs to nothing that the header introduces, ",
                  "or has an unknown ending: it is not read"));
  }
  take_unknown_macro(header, line.name, place);
}

void check_missing_block(comparison& header) {
  const missing_block missing = std::exchange(header.missing, {});
  const int macros = std::popcount(missing.rows);
  if (macros < enough_macros) {
    return;
  }
  header_finding found{
      .kind = kind_of("missing-block"),
      .place = missing.place,
      .text = joined("no line with ", input_ports.keyword, " or ", output_ports.keyword,
                     " introduces ", printable(missing.name),
                     ": it is not in the package, and its ", macros, " macros are not read")};
  if (missing.note) {
    header.findings[*missing.note] = std::move(found);
  } else {
    header.findings.push_back(std::move(found));
  }
}

}  // namespace morvane::cli

#include "cli/lint/rules/wrong_name_rules.h"

#include <algorithm>

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

}  // namespace

bool check_wrong_name(comparison& header, const c_line& line, std::size_t place) {
  return check_misspelling(header, line, place) || check_ending(header, line, place);
}

}  // namespace morvane::cli

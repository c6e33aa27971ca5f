#include "cli/lint/rules/repeated_macros.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include "cli/lint/rules/value_rules.h"
#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

using definitions = std::span<const own_definition>;

std::string_view name_of(const comparison& header, const own_definition& definition) {
  return header.reading.of(definition.kind).blocks[definition.block].name;
}

std::string macro_of(const comparison& header, const own_definition& definition) {
  return printable(macro_name(definition.kind, name_of(header, definition), definition.row->suffix,
                              header.reading.dag_name));
}

bool is_same(const own_definition& one, const own_definition& other) {
  return is_same_value(*one.row, one.word, other.word);
}

std::pair<object_kind, std::uint32_t> block_of(const own_definition& definition) {
  return {definition.kind, definition.block};
}

/// Each definition that changes the value of the one before in its block.
void check_changes(comparison& header, definitions all) {
  for (std::size_t i = 1; i < all.size(); ++i) {
    if (block_of(all[i]) == block_of(all[i - 1]) && !is_same(all[i], all[i - 1])) {
      header.findings.push_back(
          {.kind = kind_of("defined-twice"),
           .place = all[i].place,
           .text = joined(macro_of(header, all[i]), " is ", packed_value(*all[i].row, all[i].word),
                          " here, but ", packed_value(*all[i].row, all[i - 1].word), " on ",
                          line_title(header, all[i - 1].place)),
           .dag_rows = dag_row(all[i].kind, *all[i].row)});
    }
  }
}

/// The definitions of a macro, block by block; those of a block in the order of the header.
std::vector<own_definition> by_block(definitions all) {
  std::vector<own_definition> ordered(all.begin(), all.end());
  std::ranges::stable_sort(ordered, {}, block_of);
  return ordered;
}

/// The last definition of a macro in a block; null if the block has none.
const own_definition* last_in(definitions ordered, object_kind kind, std::uint32_t block) {
  const std::pair wanted(kind, block);
  const auto behind = std::ranges::upper_bound(ordered, wanted, {}, block_of);
  return behind != ordered.begin() && block_of(behind[-1]) == wanted ? &behind[-1] : nullptr;
}

/// What is wrong with a block whose value is not that of the last definition of all.
std::optional<header_finding> block_fault(comparison& header, const own_definition& last,
                                          definitions ordered, object_kind kind,
                                          std::uint32_t index) {
  const own_definition* const own = last_in(ordered, kind, index);
  const parsed_block& block = header.reading.of(kind).blocks[index];
  if (own == nullptr) {
    if (last.has_default) {
      return std::nullopt;
    }
    const std::string title = block_title(kind, block);
    const std::string line = line_title(header, header.place_of(block.name));
    const std::string kept = default_value(*last.row, empty_record(kind));
    return line_finding(kind_of("defined-elsewhere"), last.place,
                        joined(macro_of(header, last), " is not in the block of ", title, " on ",
                               line, ", which keeps ", kept),
                        last.is_sure);
  }
  if (is_same(*own, last)) {
    return std::nullopt;
  }
  header_finding found = line_finding(
      kind_of("defined-twice"), own->place,
      joined(macro_of(header, last), " is ", packed_value(*last.row, own->word), " in ",
             block_title(kind, block), ", but ", packed_value(*last.row, last.word), " on ",
             line_title(header, last.place), ", which C takes"),
      own->is_sure && last.is_sure);
  found.level = found.level.value_or(severity::error);
  return found;
}

/// The finding that the name of a block is introduced more than once, if it is told.
header_finding* repetition_of(comparison& header, macro_family family, std::string_view name) {
  header_finding* found = nullptr;
  header.names.for_each(family, name, [&](const block_names::entry& block) {
    const std::size_t place =
        header.place_of(header.reading.of(block.kind).blocks[block.index].name);
    const auto known = header.causes.find(place);
    if (known != header.causes.end()) {
      found = &header.findings[known->second];
    }
  });
  return found;
}

/// Compares every block of a name with the last definition of one of its macros.
void check_blocks(comparison& header, definitions same) {
  const own_definition& last = same.back();
  const macro_family family = family_of(last.kind);
  const std::string_view name = name_of(header, last);
  const std::vector<own_definition> ordered = by_block(same);
  header.names.for_each(family, name, [&](const block_names::entry& block) {
    std::optional<header_finding> found =
        block_fault(header, last, ordered, block.kind, block.index);
    if (!found) {
      return;
    }
    if (header_finding* const cause = repetition_of(header, family, name)) {
      add_effect(*cause, std::move(*found));
    } else {
      header.findings.push_back(std::move(*found));
    }
  });
}

/// Tells which blocks of a kind have the name of one above them.
void check_repeated_blocks(comparison& header, object_kind kind) {
  std::unordered_map<std::string_view, const parsed_block*> first;
  for (const parsed_block& block : header.reading.of(kind).blocks) {
    const auto [known, is_new] = first.try_emplace(block.name, &block);
    if (!is_new) {
      const std::size_t place = header.place_of(block.name);
      report_cause(header, {.kind = kind_of("repeated-block"),
                            .place = place,
                            .text = joined(block_title(kind, block), " is introduced on ",
                                           line_title(header, header.place_of(known->second->name)),
                                           " too: it is packed twice")});
    }
  }
}

}  // namespace

void remember_definition(comparison& header, const own_definition& definition) {
  kind_cursor& cursor = header.cursor(definition.kind);
  const auto row = static_cast<std::size_t>(definition.row - macros_of(definition.kind).data());
  row_state& state = cursor.rows.at(row);
  const bool is_second = state.own.row != nullptr;
  const bool has_many_blocks = cursor.is_repeated;
  if (is_second && !has_many_blocks && is_same(state.own, definition)) {
    state.own = definition;
    return;
  }
  if (is_second && !has_many_blocks) {
    header.repeated.push_back(state.own);
  }
  if (is_second || has_many_blocks) {
    header.repeated.push_back(definition);
  }
  state.own = definition;
}

void check_repeated(comparison& header) {
  for (const object_kind kind : header.kinds) {
    check_repeated_blocks(header, kind);
  }
  std::vector<own_definition>& all = header.repeated;
  const auto key = [&](const own_definition& d) {
    return std::tuple(family_of(d.kind), name_of(header, d), d.row, d.place);
  };
  std::ranges::sort(all, {}, key);
  // The second of three definitions is there twice: with the first and with the third.
  const auto same_place = [](const own_definition& a, const own_definition& b) {
    return a.place == b.place && a.kind == b.kind;
  };
  all.erase(std::unique(all.begin(), all.end(), same_place), all.end());
  for (std::size_t begin = 0, end = 0; begin < all.size(); begin = end) {
    const own_definition& first = all[begin];
    while (end < all.size() && all[end].row == first.row &&
           family_of(all[end].kind) == family_of(first.kind) &&
           name_of(header, all[end]) == name_of(header, first)) {
      ++end;
    }
    const definitions same = definitions(all).subspan(begin, end - begin);
    check_changes(header, same);
    check_blocks(header, same);
  }
}

}  // namespace morvane::cli

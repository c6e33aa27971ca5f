#include "cli/lint/rules/lost_macros.h"

#include <algorithm>
#include <bit>
#include <map>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "cli/lint/rules/unknown_macros.h"
#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

/// A block, and its kind.
struct known_block {
  const parsed_block* block = nullptr;
  object_kind kind{};
};

/// The lost macros of one name, near one block.
struct lost_block {
  known_block near{};
  std::vector<const lost_macro*> macros{};

  [[nodiscard]] const lost_macro& first() const { return *macros.front(); }
  [[nodiscard]] bool is_sure() const {
    return std::ranges::any_of(macros, [](const lost_macro* macro) { return macro->is_sure; });
  }
  /// Which macros they are, a bit for each row.
  [[nodiscard]] std::uint64_t rows() const {
    std::uint64_t rows = 0;
    for (const lost_macro* const macro : macros) {
      rows |= std::uint64_t{1} << (macro->parts.row - port_macros.data());
    }
    return rows;
  }
};

/// The last block of the name before a macro, or else the first behind it.
known_block nearest_of_its_name(const comparison& header, const lost_macro& macro) {
  known_block nearest;
  const std::size_t place = header.place_of(macro.name);
  header.names.for_each(
      macro.parts.family, macro.parts.block, [&](const block_names::entry& entry) {
        const parsed_block& block = header.reading.of(entry.kind).blocks[entry.index];
        const bool is_before = header.place_of(block.name) < place;
        const bool known_is_before =
            nearest.block != nullptr && header.place_of(nearest.block->name) < place;
        const bool is_later = nearest.block != nullptr &&
                              header.place_of(block.name) > header.place_of(nearest.block->name);
        if (nearest.block == nullptr || (is_before && (!known_is_before || is_later)) ||
            (!is_before && !known_is_before && !is_later)) {
          nearest = {.block = &block, .kind = entry.kind};
        }
      });
  return nearest;
}

known_block block_above(const comparison& header, macro_family family, std::size_t place) {
  known_block above;
  above.block = cli::block_above(header, family, place, above.kind);
  return above;
}

/// The place of the first character of a line that is not white.
std::size_t text_of_line(const comparison& header, std::size_t line) {
  return std::min(header.reading.header.find_first_not_of(" \t\v\f\r", line),
                  header.reading.header.size());
}

/// Whether a block begins where another ends, or between that and a macro.
bool has_block_between(const comparison& header, const parsed_block& block,
                       const lost_macro& macro) {
  const std::size_t place = header.place_of(macro.name);
  return std::ranges::any_of(header.kinds, [&](object_kind kind) {
    const known_block above = block_above(header, family_of(kind), place);
    return kind != object_kind::dag && above.block != nullptr &&
           header.place_of(above.block->name) >= block.end;
  });
}

/// A line that is no part of a block ends it.
header_finding ended_block(const comparison& header, const lost_block& lost) {
  const std::size_t count = lost.macros.size();
  return line_finding(
      kind_of("block-ends"), text_of_line(header, lost.near.block->end),
      joined("the block of ", block_title(lost.near.kind, *lost.near.block), " ends here: ", count,
             " of its macros behind this line ", count == 1 ? "is" : "are", " not read"),
      lost.is_sure());
}

/// Macros far from their block.
header_finding outside_block(comparison& header, const lost_block& lost) {
  const auto [block, kind] = lost.near;
  const std::string title = block_title(kind, *block);
  const bool is_before = header.place_of(lost.first().name) < header.place_of(block->name);
  const std::string edge =
      line_title(header, is_before ? header.place_of(block->name) : block->end);
  const std::string reason =
      joined("comes ", is_before ? "before" : "after", " the block of ", title, ", which ",
             is_before ? "begins" : "ended", " on ", edge);
  std::optional<header_finding> all;
  for (const lost_macro* const macro : lost.macros) {
    header_finding found =
        line_finding(kind_of("outside-any-block"), header.place_of(macro->name),
                     joined(printable(macro->name), " is not read: it ", reason), macro->is_sure);
    if (all) {
      add_effect(*all, std::move(found));
    } else {
      all = std::move(found);
    }
  }
  return std::move(*all);
}

/// What the port is whose introducing line is missing, as the others tell: outputs come last, and a
/// DAG has both.
std::string_view direction_of(const comparison& header, const lost_block& lost) {
  const auto& inputs = header.reading.of(object_kind::input).blocks;
  const auto& outputs = header.reading.of(object_kind::output).blocks;
  const char* const place = lost.first().name.data();
  const bool is_below_output = !outputs.empty() && outputs.front().name.data() < place;
  const bool is_above_input = !inputs.empty() && inputs.back().name.data() > place;
  if (is_below_output != is_above_input) {
    return is_below_output ? "output" : "input";
  }
  if (inputs.empty() != outputs.empty()) {
    return inputs.empty() ? "input" : "output";
  }
  return "the port";
}

/// So many different macros of a port are those of one name by intention. With fewer, something
/// else may be meant, such as net_frames_W.
bool is_whole_port(const lost_block& lost) {
  constexpr int enough = 3;
  return !lost.first().is_known && lost.first().parts.row != nullptr &&
         std::popcount(lost.rows()) >= enough;
}

/// What to say about macros whose names are nearly those of the block above them.
std::optional<header_finding> misnamings_of(comparison& header, const lost_block& lost) {
  std::optional<header_finding> all;
  for (const lost_macro* const macro : lost.macros) {
    std::optional<header_finding> found = misnaming_of(header, *macro);
    if (all && found) {
      add_effect(*all, std::move(*found));
    } else if (found) {
      all = std::move(found);
    }
  }
  return all;
}

/// The macros of a port that no line introduces with its name.
header_finding missing_block(comparison& header, const lost_block& lost) {
  const std::size_t count = lost.macros.size();
  const std::size_t place = header.place_of(lost.first().name);
  const std::string name = printable(lost.first().parts.block);
  const auto [above, kind] = lost.near;
  if (above != nullptr && above->taken == 0) {
    return line_finding(kind_of("wrong-name"), header.place_of(above->name),
                        joined("the ", count, " macros below are those of ", name, ", not of ",
                               block_title(kind, *above), ": they are not read"),
                        lost.is_sure());
  }
  if (above != nullptr && (above->taken & lost.rows()) == 0) {
    if (auto found = misnamings_of(header, lost)) {
      return std::move(*found);
    }
  }
  return line_finding(kind_of("missing-block"), place,
                      joined("no line introduces ", direction_of(header, lost), " ", name, ": its ",
                             count, " macros are not read"),
                      lost.is_sure());
}

/// Tells what is found, and knows which lines have findings.
struct lost_check {
  comparison& header;
  std::unordered_map<std::size_t, std::size_t> lines{};  // from their places to the first findings

  [[nodiscard]] std::size_t line_of(std::size_t place) const {
    const std::size_t newline = header.reading.header.substr(0, place).rfind('\n');
    return newline == std::string_view::npos ? 0 : newline + 1;
  }
  void tell(header_finding found) {
    lines.try_emplace(line_of(found.place), header.findings.size());
    header.causes.try_emplace(found.place, header.findings.size());
    header.findings.push_back(std::move(found));
  }
  /// Tells what follows from another fault of its line, if that has one.
  void tell_effect(header_finding found) {
    const auto known = lines.find(line_of(found.place));
    if (known == lines.end()) {
      tell(std::move(found));
    } else {
      add_effect(header.findings[known->second], std::move(found));
    }
  }
  /// Tells what follows from a fault of the name of a block without macros, if that has one.
  void tell_of_block(header_finding found, const parsed_block* block) {
    const auto known = block == nullptr || block->taken != 0
                           ? lines.end()
                           : lines.find(line_of(header.place_of(block->name)));
    if (known == lines.end()) {
      tell(std::move(found));
    } else {
      add_effect(header.findings[known->second], std::move(found));
    }
  }
};

void check_unknown(lost_check& check, const lost_block& lost) {
  if (is_whole_port(lost)) {
    return check.tell_effect(missing_block(check.header, lost));
  }
  for (const lost_macro* const macro : lost.macros) {
    if (auto found = misnaming_of(check.header, *macro)) {
      check.tell_of_block(std::move(*found), lost.near.block);
    } else {
      note_unknown(check.header, *macro);
    }
  }
}

/// The end of a block is told last, as another fault of its line may be the cause.
void check_known(lost_check& check, const lost_block& lost, bool tells_ends) {
  comparison& header = check.header;
  const auto [block, kind] = lost.near;
  const std::size_t place = header.place_of(lost.first().name);
  if (is_behind_stop(header, kind, place)) {
    return;
  }
  const bool is_ended =
      header.place_of(block->name) < place && !has_block_between(header, *block, lost.first());
  if (is_ended && tells_ends) {
    check.tell_effect(ended_block(header, lost));
  } else if (!is_ended && !tells_ends) {
    check.tell(outside_block(header, lost));
  }
}

/// Tells that the macros of the DAG have another name than the DAG, if none has that.
void check_dag_name(lost_check& check) {
  comparison& header = check.header;
  const auto& dag = header.reading.of(object_kind::dag).blocks;
  if (dag.empty() || dag[0].taken != 0) {
    return;
  }
  for (const lost_macro& macro : header.lost) {
    const auto* const row = std::ranges::find_if(
        dag_macros, [&](const macro_row& each) { return macro.name.ends_with(each.suffix); });
    if (row != dag_macros.end() && !macro.is_known) {
      check.tell_effect({.kind = kind_of("wrong-name"),
                         .place = header.place_of(header.reading.dag_name),
                         .text = joined("the DAG is named ", in_quotes(header.reading.dag_name),
                                        ", but its macros begin with ",
                                        in_quotes(macro.name.substr(
                                            0, macro.name.size() - row->suffix.size())))});
      header.findings[check.lines[check.line_of(header.place_of(header.reading.dag_name))]]
          .dag_rows = all_dag_rows;
      return;
    }
  }
}

/// The lost macros, in the order of the first of each block.
std::vector<lost_block> lost_blocks(const comparison& header) {
  std::vector<lost_block> blocks;
  std::map<std::tuple<macro_family, std::string_view, const parsed_block*, bool>, std::size_t>
      known;
  for (const lost_macro& macro : header.lost) {
    const known_block near =
        macro.is_known ? nearest_of_its_name(header, macro)
                       : block_above(header, macro_family::port, header.place_of(macro.name));
    const auto key = std::tuple(macro.parts.family, macro.parts.block, near.block, macro.is_known);
    const auto [entry, is_new] = known.try_emplace(key, blocks.size());
    if (is_new) {
      blocks.push_back({.near = near});
    }
    blocks[entry->second].macros.push_back(&macro);
  }
  return blocks;
}

}  // namespace

void check_lost_macros(comparison& header) {
  lost_check check{.header = header};
  for (std::size_t i = 0; i < header.findings.size(); ++i) {
    check.lines.try_emplace(check.line_of(header.findings[i].place), i);
  }
  check_dag_name(check);
  const std::vector<lost_block> blocks = lost_blocks(header);
  for (const lost_block& lost : blocks) {
    lost.first().is_known ? check_known(check, lost, false) : check_unknown(check, lost);
  }
  for (const lost_block& lost : blocks) {
    if (lost.first().is_known) {
      check_known(check, lost, true);
    }
  }
}

}  // namespace morvane::cli

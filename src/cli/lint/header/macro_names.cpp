#include "cli/lint/header/macro_names.h"

#include <algorithm>
#include <array>

namespace morvane::cli {

namespace {

std::span<const macro_row> macros_of(macro_family family) {
  constexpr std::array kinds{object_kind::dag, object_kind::input, object_kind::variable,
                             object_kind::smb};
  return cli::macros_of(kinds.at(static_cast<std::size_t>(family)));
}

/// Removes a prefix and the underscore behind it.
bool take_prefix(std::string_view& text, std::string_view prefix) {
  if (text.size() <= prefix.size() || !text.starts_with(prefix) || text[prefix.size()] != '_') {
    return false;
  }
  text.remove_prefix(prefix.size() + 1);
  return true;
}

/// Removes an ending.
bool take_end(std::string_view& text, std::string_view end) {
  if (!text.ends_with(end)) {
    return false;
  }
  text.remove_suffix(end.size());
  return true;
}

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// What is left of two texts behind what they share, and how many edits are left for it: of "pixl"
/// and "pixel", "l" and "el".
struct two_rests {
  std::string_view one{};
  std::string_view other{};
  unsigned edits = 0;
};

/// Whether the rests are the same except for letters that their edits add or leave out.
bool is_matched(two_rests& rests) {
  while (!rests.one.empty() && !rests.other.empty() && rests.one.front() == rests.other.front()) {
    rests.one.remove_prefix(1);
    rests.other.remove_prefix(1);
  }
  return std::min(rests.one.size(), rests.other.size()) == 0 &&
         rests.one.size() + rests.other.size() <= rests.edits;
}

bool is_within_two_edits(std::string_view one, std::string_view other) {
  std::array<two_rests, 1 + 3 + 9> all{two_rests{.one = one, .other = other, .edits = 2}};
  std::size_t known = 1;
  for (std::size_t i = 0; i < known; ++i) {
    if (is_matched(all.at(i))) {
      return true;
    }
    const two_rests& now = all.at(i);
    if (now.edits > 0 && !now.one.empty() && !now.other.empty()) {
      all.at(known++) = {now.one.substr(1), now.other, now.edits - 1};
      all.at(known++) = {now.one, now.other.substr(1), now.edits - 1};
      all.at(known++) = {now.one.substr(1), now.other.substr(1), now.edits - 1};
    }
  }
  return false;
}

}  // namespace

macro_family family_of(object_kind kind) {
  switch (kind) {
    case object_kind::dag:
      return macro_family::dag;
    case object_kind::variable:
      return macro_family::variable;
    case object_kind::smb:
      return macro_family::smb;
    default:
      return macro_family::port;
  }
}

bool is_macro_of(std::string_view macro, object_kind kind, std::string_view block,
                 std::string_view suffix, std::string_view dag_name) {
  if (!take_end(macro, suffix) || !take_end(macro, block)) {
    return false;
  }
  if (kind == object_kind::dag || kind == object_kind::variable) {
    return macro.empty();
  }
  if (dag_name.empty()) {
    return !macro.empty();
  }
  return take_end(macro, "_") && macro == dag_name;
}

std::string macro_name(object_kind kind, std::string_view block, std::string_view suffix,
                       std::string_view dag_name) {
  std::string name;
  const bool has_prefix = kind != object_kind::dag && kind != object_kind::variable;
  if (has_prefix && !dag_name.empty()) {
    name.append(dag_name).append("_");
  }
  return name.append(block).append(suffix);
}

macro_parts parts_of(std::string_view macro, macro_family family, std::string_view dag_name,
                     const block_names& names) {
  const auto rows = macros_of(family);
  const auto has_suffix = [&](const macro_row& row) { return macro.ends_with(row.suffix); };
  const auto row = std::ranges::find_if(rows, has_suffix);
  if (row == rows.end()) {
    return {.family = family};
  }
  std::string_view block = macro.substr(0, macro.size() - row->suffix.size());
  const bool has_prefix = family == macro_family::port || family == macro_family::smb;
  if ((has_prefix && !take_prefix(block, dag_name)) || !names.is_known(family, block)) {
    return {.family = family};
  }
  return {.family = family, .row = &*row, .block = block};
}

block_names::block_names(const header_reading& reading) {
  std::size_t total = 1;
  for (const kind_reading& kind : reading.kinds) {
    total += kind.blocks.size();
  }
  all_.reserve(total);
  all_.push_back({});
  for (std::size_t kind = 0; kind < object_kinds; ++kind) {
    const auto of_kind = static_cast<object_kind>(kind);
    auto& first = first_.at(static_cast<std::size_t>(family_of(of_kind)));
    const auto& blocks = reading.kinds.at(kind).blocks;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
      const auto place = static_cast<std::uint32_t>(all_.size());
      const auto [known, is_new] = first.try_emplace(blocks[i].name, place);
      all_.push_back({.kind = of_kind,
                      .index = static_cast<std::uint32_t>(i),
                      .next = is_new ? 0 : known->second});
      known->second = place;
    }
  }
}

bool block_names::is_repeated(macro_family family, std::string_view name) const {
  const auto& first = first_.at(static_cast<std::size_t>(family));
  const auto found = first.find(name);
  return found != first.end() && all_[found->second].next != 0;
}

bool is_nearly(std::string_view one, std::string_view other) {
  return is_within_two_edits(one, other) || is_same_but_case(one, other);
}

bool is_same_but_case(std::string_view one, std::string_view other) {
  return std::ranges::equal(one, other, [](char a, char b) { return lower(a) == lower(b); });
}

}  // namespace morvane::cli

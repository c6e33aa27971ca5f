#include "cli/lint/rules/missing_blocks.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

// So many different macros of a port have one name by intention. With fewer, something else may be
// meant, such as net_frames_W.
constexpr int enough_macros = 3;

/// The macro's row among those of a port, and the name before it. Null for other macros.
macro_parts port_parts(const comparison& header, std::string_view macro) {
  const auto* const row = std::ranges::find_if(
      port_macros, [&](const macro_row& each) { return macro.ends_with(each.suffix); });
  const std::string_view dag = header.reading.dag_name;
  const std::size_t begin = dag.size() + 1;
  if (row == port_macros.end() || dag.empty() || macro.size() <= begin + row->suffix.size() ||
      !macro.starts_with(dag) || macro[dag.size()] != '_') {
    return {.family = macro_family::port};
  }
  return {.family = macro_family::port,
          .row = &*row,
          .block = macro.substr(begin, macro.size() - begin - row->suffix.size())};
}

}  // namespace

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

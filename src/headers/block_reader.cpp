#include "headers/block_reader.h"

#include <algorithm>

#include "headers/length_check.h"
#include "headers/macro_values.h"

namespace morvane {

namespace {

/// Whether the line contains the marker of the block of the name.
bool holds_marker(const named_line& named, std::string_view lead) {
  return std::ranges::any_of(named.rests, [&](std::string_view rest) {
    const std::size_t place = named.line.size() - rest.size() - named.name.size();
    return named.line.substr(0, place).ends_with(lead) && rest.starts_with('_');
  });
}

}  // namespace

int read_block(line_reader& lines, const block_format& format, std::string_view name,
               std::span<std::byte> record) {
  if (check_length_limit(name, format.name_limit) != 0) {
    return -1;
  }
  store_text(record.subspan(format.name_offset, format.name_limit.longest + 1), name);
  named_line named{.line = {}, .name = name, .rests = {}};
  std::size_t after_block = lines.next;
  std::string_view line;
  while (next_line(lines, line)) {
    set_line(named, line);
    if (!holds_marker(named, format.marker_lead) ||
        line.find(format.keyword) != std::string_view::npos) {
      lines.next = after_block;
      return 0;
    }
    after_block = lines.next;
    if (store_macro(named, format.macros, record) != 0) {
      return -1;
    }
  }
  return 0;
}

}  // namespace morvane

#include "headers/block_reader.h"

#include <algorithm>

namespace morvane {

bool holds_marker(const named_line& named, std::string_view lead) {
  return std::ranges::any_of(named.rests, [&](std::string_view rest) {
    const std::size_t place = named.line.size() - rest.size() - named.name.size();
    return named.line.substr(0, place).ends_with(lead) && rest.starts_with('_');
  });
}

template int read_block(line_reader&, const block_format&, std::string_view, std::span<std::byte>,
                        const no_observer&);

}  // namespace morvane

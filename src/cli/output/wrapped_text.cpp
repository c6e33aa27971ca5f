#include "cli/output/wrapped_text.h"

#include <algorithm>

#include "cli/output/text_table.h"

namespace morvane::cli {

std::string wrapped(std::string_view text, std::size_t indent) {
  constexpr std::size_t columns = 80;
  std::string result;
  std::size_t used = indent;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find_first_of(" \n", begin), text.size());
    const std::string_view word = text.substr(begin, end - begin);
    if (used + 1 + width_of(word) > columns) {
      result.append("\n").append(indent, ' ');
      used = indent;
    } else if (begin != 0) {
      result += ' ';
      ++used;
    }
    result += word;
    used += width_of(word);
    begin = end + 1;
  }
  result += '\n';
  return result;
}

}  // namespace morvane::cli

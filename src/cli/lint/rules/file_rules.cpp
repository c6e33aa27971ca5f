#include "cli/lint/rules/file_rules.h"

#include <algorithm>
#include <array>

#include "cli/lint/c/c_text.h"

namespace morvane::cli {

namespace {

bool is_binary(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte < 0x20 && c != '\n' && !is_white(c)) || byte == 0x7F;
}

}  // namespace

std::string_view coding_of(std::string_view text) {
  constexpr std::size_t enough = 16;  // of so many bytes one shows what they are
  const auto nuls = static_cast<std::size_t>(std::ranges::count(text, '\0'));
  const auto controls = static_cast<std::size_t>(std::ranges::count_if(text, is_binary));
  const bool is_marked = text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
  if (is_marked || (nuls > text.size() / 3 && controls == 0)) {
    return "UTF-16 or UTF-32 text";
  }
  if (controls > text.size() / enough) {
    return "binary data";
  }
  const bool has_one_line = text.find('\n') == std::string_view::npos;
  return has_one_line && std::ranges::count(text, '\r') > 1
             ? "one line, as its line ends are carriage returns"
             : "";
}

bool is_conflict_marker(std::string_view line) {
  constexpr std::array<std::string_view, 4> markers{"<<<<<<<", "|||||||", "=======", ">>>>>>>"};
  return std::ranges::any_of(markers, [&](std::string_view marker) {
    return line.starts_with(marker) &&
           (line.size() == marker.size() || is_white(line[marker.size()]));
  });
}

}  // namespace morvane::cli

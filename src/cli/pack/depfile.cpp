#include "cli/pack/depfile.h"

#include <algorithm>

#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

/// A blank and "#" are escaped by a backslash, and so are backslashes before them; "$" by another.
std::string escaped(std::string_view path) {
  std::string text;
  std::size_t backslashes = 0;  // at the end of the text
  for (const char c : path) {
    if (c == ' ' || c == '#') {
      text.append(backslashes + 1, '\\');
    } else if (c == '$') {
      text += '$';
    }
    text += c;
    backslashes = c == '\\' ? backslashes + 1 : 0;
  }
  return text;
}

bool has_line_break(std::string_view path) {
  return path.find_first_of("\r\n") != std::string_view::npos;
}

}  // namespace

std::string depfile_text(std::string_view package, const std::vector<std::string>& inputs) {
  if (has_line_break(package) || std::ranges::any_of(inputs, has_line_break)) {
    return {};
  }
  std::string text = escaped(package) + ":";
  std::string empty_rules;
  for (const std::string& input : inputs) {
    const std::string path = escaped(input);
    append_pieces(text, " \\\n  ", path);
    append_pieces(empty_rules, path, ":\n");
  }
  return joined(text, "\n", empty_rules);
}

}  // namespace morvane::cli

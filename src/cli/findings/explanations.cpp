#include "cli/findings/explanations.h"

#include <algorithm>

#include "cli/findings/findings_page.h"
#include "cli/output/printable_text.h"
#include "cli/output/wrapped_text.h"

namespace morvane::cli {

namespace {

/// A paragraph without its marks: of `code` the code, of [a link](to a page) its text.
std::string without_marks(std::string_view paragraph) {
  std::string text;
  for (std::size_t i = 0; i < paragraph.size(); ++i) {
    if (paragraph.substr(i).starts_with("](")) {
      i = std::min(paragraph.find(')', i), paragraph.size());
    } else if (paragraph[i] != '`' && paragraph[i] != '[') {
      text += paragraph[i];
    }
  }
  return text;
}

/// The part of the document between the heading of a code and the next heading.
std::string_view entry_of(std::string_view code) {
  const std::string heading = joined("\n### `", code, "`\n\n");
  const std::string_view rest = findings_page.substr(findings_page.find(heading) + heading.size());
  return rest.substr(0, rest.find("\n#"));
}

}  // namespace

std::string explanation_of(std::string_view code) {
  std::string text;
  for (std::string_view rest = entry_of(code); !rest.empty();) {
    const std::string_view paragraph = rest.substr(0, rest.find("\n\n"));
    rest.remove_prefix(std::min(paragraph.size() + 2, rest.size()));
    const bool is_example = paragraph.starts_with("    ");
    append_pieces(text, text.empty() ? "" : "\n",
                  is_example ? joined(paragraph, "\n") : wrapped(without_marks(paragraph)));
  }
  return text;
}

}  // namespace morvane::cli

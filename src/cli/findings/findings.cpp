#include "cli/findings/findings.h"

#include <algorithm>
#include <utility>

#include "cli/output/printable_text.h"

namespace morvane::cli {

std::string_view name_of(severity level) {
  switch (level) {
    case severity::error:
      return "error";
    case severity::warning:
      return "warning";
    default:
      return "note";
  }
}

const finding_kind* find_kind(std::string_view code) {
  const auto* const found = std::ranges::find(finding_kinds, code, &finding_kind::code);
  return found == finding_kinds.end() ? nullptr : found;
}

std::string text_with_rest(const finding& found) {
  return found.rest.empty() ? found.text
                            : joined(found.text, " (and ", found.rest.size(), " more)");
}

void report(const finding_sink& sink, const finding_kind* kind, std::size_t offset,
            std::string text) {
  sink({.kind = kind, .file = {}, .place = {.offset = offset}, .text = std::move(text)});
}

}  // namespace morvane::cli

#include "cli/findings/findings.h"

#include <utility>

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

void report(const finding_sink& sink, const finding_kind* kind, std::size_t offset,
            std::string text) {
  sink({.kind = kind, .file = {}, .place = {.offset = offset}, .text = std::move(text)});
}

}  // namespace morvane::cli

#include "companion/findings.h"

namespace morvane::companion {

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

}  // namespace morvane::companion

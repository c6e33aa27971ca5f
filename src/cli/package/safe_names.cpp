#include "cli/package/safe_names.h"

#include <algorithm>

#include "cli/output/printable_text.h"

namespace morvane::cli {

bool holds_control_character(std::string_view name) {
  return std::ranges::any_of(name, is_control);
}

std::string_view unsafe_part(std::string_view name) {
  if (name == "." || name == "..") {
    return " stands for a folder";
  }
  if (name.find('/') != std::string_view::npos) {
    return " holds a slash";
  }
  return holds_control_character(name) ? " holds a control character" : "";
}

}  // namespace morvane::cli

#include "companion/pack_messages.h"

#include "companion/printable_text.h"

namespace morvane::companion {

bool print_messages(const console& streams, std::string_view text) {
  bool warned = false;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    const bool is_warning = line.starts_with("warning: ");
    warned = warned || is_warning;
    if (!(is_warning && streams.quiet)) {
      print_message(printable(line));
    }
  }
  return warned;
}

}  // namespace morvane::companion

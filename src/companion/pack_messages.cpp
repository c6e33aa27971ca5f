#include "companion/pack_messages.h"

#include <algorithm>

#include "companion/printable_text.h"

namespace morvane::companion {

void print_messages(std::string_view text) {
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    print_message(printable(line));
  }
}

}  // namespace morvane::companion

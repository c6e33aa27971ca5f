// What the parsers say when a folder cannot be packed.
#pragma once

#include <string_view>
#include <utility>

#include "companion/console.h"
#include "io/message.h"

namespace morvane::companion {

/// Prints the lines of a text as messages on standard error.
void print_messages(std::string_view text);

/// Runs a step of a pack run. Returns status_fine; or status_findings when it failed, after what it
/// said. What else it says is not printed: the linter has told it, with places.
template <class Step>
int run_step(const Step& step) {
  std::string text;
  int result = 0;
  {
    collected_messages messages;
    result = step();
    text = std::move(messages.text);
  }
  if (result == 0) {
    return status_fine;
  }
  print_messages(text);
  return status_findings;
}

}  // namespace morvane::companion

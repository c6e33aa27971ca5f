// What the parsers say while a folder is packed.
#pragma once

#include <functional>
#include <string_view>

#include "companion/console.h"
#include "io/message.h"

namespace morvane::companion {

/// Prints the lines of a text as messages on standard error; warnings only when the user did not
/// ask for quiet. Returns whether there was a warning.
bool print_messages(const console& streams, std::string_view text);

/// Runs a step of a pack run and prints what it says. Returns status_fine; or status_findings when
/// it failed, or had a warning and warnings are errors.
template <class Step>
int tell_messages(const console& streams, bool warnings_are_errors, const Step& step) {
  std::string text;
  int result = 0;
  {
    collected_messages messages;
    result = step();
    text = std::move(messages.text);
  }
  const bool warned = print_messages(streams, text);
  return result != 0 || (warned && warnings_are_errors) ? status_findings : status_fine;
}

}  // namespace morvane::companion

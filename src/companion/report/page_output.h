// A page on its way to standard output or to a file, every write checked.
#pragma once

#include <string>

#include "companion/console.h"
#include "companion/held_signals.h"
#include "companion/report/html_text.h"

namespace morvane::companion {

struct page_output {
  console& streams;
  int descriptor;
  std::string name;             // of the output, for messages
  const held_signals* signals;  // one that is waiting ends the page; may be null
  std::string pending{};
};

/// Ends a page early, so that a signal can end the program.
struct page_interruption {};

/// Writes what is pending. Throws std::system_error when the output does not take it, and
/// page_interruption when a signal is waiting; so below.
void flush(page_output& out);

/// Adds the pieces to the page.
template <class... Pieces>
void write(page_output& out, const Pieces&... pieces) {
  constexpr std::size_t most_pending = std::size_t{64} * 1024;
  append_pieces(out.pending, pieces...);
  if (out.pending.size() >= most_pending) {
    flush(out);
  }
}

}  // namespace morvane::companion

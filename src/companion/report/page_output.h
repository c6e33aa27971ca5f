// A page on its way to standard output or to a file, every write checked.
#pragma once

#include <concepts>
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
  bool has_shortened = false;  // whether a text of a package is not on the page as a whole
};

/// Ends a page early, so that a signal can end the program.
struct page_interruption {};

/// Writes what is pending. Throws std::system_error when the output does not take it, and
/// page_interruption when a signal is waiting; so below.
void flush(page_output& out);

/// Appends a piece. Returns whether a text was shortened.
template <class Piece>
bool append_noticing(std::string& page, const Piece& piece) {
  if constexpr (requires {
                  { append_piece(page, piece) } -> std::same_as<bool>;
                }) {
    return append_piece(page, piece);
  } else {
    append_pieces(page, piece);
    return false;
  }
}

/// Adds the pieces to the page.
template <class... Pieces>
void write(page_output& out, const Pieces&... pieces) {
  constexpr std::size_t most_pending = std::size_t{64} * 1024;
  ((out.has_shortened = append_noticing(out.pending, pieces) || out.has_shortened), ...);
  if (out.pending.size() >= most_pending) {
    flush(out);
  }
}

}  // namespace morvane::companion

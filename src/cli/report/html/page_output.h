// A page on its way to standard output or to a file, every write checked.
#pragma once

#include <string>

#include "cli/files/blocked_signals.h"
#include "cli/output/console.h"
#include "io/message.h"

namespace morvane::cli {

struct page_output {
  console& streams;
  int descriptor;
  std::string name;                // of the output, for messages
  const blocked_signals* signals;  // one that is waiting ends the page; may be null
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
  append_pieces(out.pending, pieces...);
  if (out.pending.size() >= max_pending) {
    flush(out);
  }
}

/// A list that has room for so many bytes of entries.
struct bounded_list {
  page_output& out;
  std::size_t room = 0;
  std::uint64_t shown = 0;  // entries
};

/// Adds an entry to a list. One that has no room is left out, with all that follow.
template <class... Pieces>
void write_entry(bounded_list& list, const Pieces&... pieces) {
  std::string entry;
  append_pieces(entry, pieces...);
  if (entry.size() > list.room) {
    list.room = 0;
    return;
  }
  list.room -= entry.size();
  ++list.shown;
  write(list.out, entry);
}

}  // namespace morvane::cli

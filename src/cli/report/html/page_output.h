// A page on its way to standard output or to a file, every write checked.
#pragma once

#include <concepts>
#include <string>

#include "cli/files/blocked_signals.h"
#include "cli/output/console.h"
#include "cli/report/html/html_text.h"
#include "cli/report/html/page_limits.h"

namespace morvane::cli {

struct page_output {
  console& streams;
  int descriptor;
  std::string name;                // of the output, for messages
  const blocked_signals* signals;  // one that is waiting ends the page; may be null
  page_limits limits{};
  page_measure* measured = nullptr;  // the page is only measured, unless this is null
  std::string pending{};
  bool has_shortened = false;  // whether a text of a package is not on the page as a whole
};

/// Ends a page early, so that a signal can end the program.
struct page_interruption {};

/// Writes what is pending, or adds it to the measure. Throws std::system_error when the output does
/// not take it, and page_interruption when a signal is waiting; so below.
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
  ((out.has_shortened = append_noticing(out.pending, pieces) || out.has_shortened), ...);
  if (out.pending.size() >= max_pending) {
    flush(out);
  }
}

/// Counts an entry of a list for the measure of a page.
void count_entry(page_measure& measured, std::uint64_t position, std::uint64_t bytes);

/// Calls a function that writes the entry at a position of a list, if the limits leave room for
/// it. Returns whether they do.
template <class Function>
bool write_entry(page_output& out, std::uint64_t position, Function write_it) {
  if (position >= out.limits.max_entries) {
    return false;
  }
  if (out.measured == nullptr) {
    write_it();
  } else {
    const std::uint64_t begin = out.measured->bytes + out.pending.size();
    write_it();
    count_entry(*out.measured, position, out.measured->bytes + out.pending.size() - begin);
  }
  return true;
}

/// Writes the entries of a list for which the limits leave room, each with a call of a function.
/// Returns how many these are.
template <class List, class Function>
std::uint64_t write_entries(page_output& out, const List& list, Function write_one) {
  std::uint64_t shown = 0;
  for (const auto& one : list) {
    if (!write_entry(out, shown, [&] { write_one(one); })) {
      break;
    }
    ++shown;
  }
  return shown;
}

}  // namespace morvane::cli

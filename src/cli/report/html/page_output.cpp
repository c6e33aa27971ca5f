#include "cli/report/html/page_output.h"

#include <span>
#include <system_error>

#include "cli/output/checked_write.h"

namespace morvane::cli {

namespace {

void add(page_measure& measured, std::string_view text) {
  measured.bytes += text.size();
  if (measured.bytes <= measured.max_kept) {
    measured.page += text;
  } else {
    measured.page = {};
  }
}

}  // namespace

void flush(page_output& out) {
  if (out.signals != nullptr && out.signals->is_waiting()) {
    throw page_interruption();
  }
  if (out.measured != nullptr) {
    add(*out.measured, out.pending);
    out.pending.clear();
    return;
  }
  const int error = write_checked(out.descriptor, std::as_bytes(std::span(out.pending)));
  out.pending.clear();
  if (error != 0) {
    hide_progress(out.streams.progress);
    throw std::system_error(error, std::generic_category(), out.name);
  }
}

void count_entry(page_measure& measured, std::uint64_t position, std::uint64_t bytes) {
  if (measured.entries.size() <= position) {
    measured.entries.resize(position + 1);
  }
  measured.entries[position].bytes += bytes;
  ++measured.entries[position].lists;
}

}  // namespace morvane::cli

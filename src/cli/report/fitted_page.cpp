#include "cli/report/fitted_page.h"

#include <algorithm>
#include <optional>

#include "cli/report/page.h"

namespace morvane::cli {

namespace {

constexpr std::uint64_t frame_bytes = std::uint64_t{16} * 1024;
constexpr std::uint64_t bytes_for_each = 2048;  // DVI and port

/// A page of at most so many bytes is kept while it is measured, so that it is made only once.
constexpr std::uint64_t max_kept_bytes = std::uint64_t{16} * 1024 * 1024;

/// The entries that all lists have together, and more.
std::uint64_t entries_of(const page_content& content) {
  const checked_package& checked = content.checked;
  const std::uint64_t findings =
      checked.errors.size() + checked.warnings.size() + checked.notes.size();
  const std::uint64_t changes = content.changes == nullptr ? 0 : 2 * content.changes->kept.size();
  return content.totals.variables + content.totals.smbs + findings + changes;
}

/// Whether a long page is so far from its limit that there is no need to measure it.
bool surely_fits(const page_content& content) {
  // What each needs at most, and more, of a package with too many ports for a row for each.
  constexpr std::uint64_t dvi_bytes = std::uint64_t{10} * 1024;
  constexpr std::uint64_t port_bytes = 1920;
  constexpr std::uint64_t entry_bytes = 1280;
  constexpr std::uint64_t many_ports = 4096;
  return content.totals.ports > many_ports && content.package.view.sound_dvis * dvi_bytes +
                                                      content.totals.ports * port_bytes +
                                                      entries_of(content) * entry_bytes <=
                                                  max_page_bytes(content);
}

page_measure measure(const page_content& content, const page_output& out,
                     const page_limits& limits) {
  page_measure measured{.max_kept = std::min(max_kept_bytes, max_page_bytes(content))};
  page_output trial{out.streams, out.descriptor, out.name, out.signals, limits, &measured};
  write_page(content, trial);
  flush(trial);
  return measured;
}

/// The most entries of each list with which a measured page has at most so many bytes; none when
/// it has more without any.
std::optional<std::uint64_t> entries_that_fit(const page_measure& measured, std::uint64_t most) {
  constexpr std::uint64_t left_out_bytes = 128;  // of the line that says how many are left out
  std::uint64_t bytes = measured.bytes;
  for (const entry_total& one : measured.entries) {
    bytes -= one.bytes;
  }
  std::optional<std::uint64_t> found;
  for (std::size_t i = 0; i < measured.entries.size(); ++i) {
    if (bytes + measured.entries[i].lists * left_out_bytes <= most) {
      found = i;
    }
    bytes += measured.entries[i].bytes;
  }
  return bytes <= most ? UINT64_MAX : found;
}

/// The limits with which a page that is too long without any becomes short enough.
page_limits find_limits(const page_content& content, const page_output& out) {
  const std::uint64_t most = max_page_bytes(content);
  page_limits limits{.has_field_text = true};
  std::optional<std::uint64_t> entries = entries_that_fit(measure(content, out, limits), most);
  limits.is_tight = !entries;
  limits.max_pictured = std::min(limits.max_pictured, content.package.view.sound_dvis);
  while (!entries) {
    entries = entries_that_fit(measure(content, out, limits), most);
    if (!entries && limits.max_pictured == 0) {
      entries = 0;  // nothing else can be left out
    }
    if (!entries) {
      limits.max_pictured /= 2;
    }
  }
  limits.max_entries = *entries;
  return limits;
}

}  // namespace

std::uint64_t max_page_bytes(const page_content& content) {
  const std::uint64_t old = content.changes == nullptr ? 0 : content.changes->old_dvis_and_ports;
  return frame_bytes +
         bytes_for_each * (content.package.view.sound_dvis + content.totals.ports + old);
}

void write_fitted_page(const page_content& content, page_output& out) {
  if (surely_fits(content)) {
    write_page(content, out);
    return;
  }
  page_measure measured = measure(content, out, out.limits);
  if (measured.bytes <= max_page_bytes(content) && !measured.page.empty()) {
    out.pending = std::move(measured.page);
    return;
  }
  if (measured.bytes > max_page_bytes(content)) {
    measured = {};
    out.limits = find_limits(content, out);
  }
  write_page(content, out);
}

}  // namespace morvane::cli

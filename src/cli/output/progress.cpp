#include "cli/output/progress.h"

#include <unistd.h>

#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

constexpr std::chrono::seconds silence_before{1};
constexpr std::chrono::milliseconds between_updates{200};
constexpr std::string_view empty_line = "\r\x1b[K";

void write_to_terminal(std::string_view text) {
  static_cast<void>(::write(STDERR_FILENO, text.data(), text.size()) < 0);
}

}  // namespace

progress_line begin_progress(std::string_view name, std::uint64_t total, bool quiet,
                             progress_unit unit) {
  if (quiet || ::isatty(STDERR_FILENO) != 1) {
    return {};
  }
  const auto now = std::chrono::steady_clock::now();
  return {.name = printable(name), .total = total, .unit = unit, .begin = now, .shown = now};
}

void show_progress(progress_line& progress, std::uint64_t done) {
  if (progress.name.empty()) {
    return;
  }
  const auto now = std::chrono::steady_clock::now();
  const auto spent = now - progress.begin;
  if (spent < silence_before || now - progress.shown < between_updates) {
    return;
  }
  progress.shown = now;
  progress.is_visible = true;
  const double seconds = std::chrono::duration<double>(spent).count();
  write_to_terminal(joined(empty_line, "morvane: ", progress_text(progress, done, seconds)));
}

void hide_progress(progress_line& progress) {
  if (progress.is_visible) {
    write_to_terminal(empty_line);
    progress.is_visible = false;
  }
}

std::string progress_text(const progress_line& progress, std::uint64_t done, double seconds) {
  if (progress.unit == progress_unit::dvis) {
    return joined(progress.name, ": ", done, " of ", progress.total, " DVIs");
  }
  constexpr std::uint64_t mebibyte = std::uint64_t{1} << 20U;
  const auto rate = static_cast<std::uint64_t>(static_cast<double>(done) / seconds) / mebibyte;
  return joined(progress.name, ": ", done / mebibyte, " of ", progress.total / mebibyte, " MiB, ",
                rate, " MiB/s");
}

}  // namespace morvane::cli

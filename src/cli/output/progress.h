// A line on the terminal that tells how far long work has come.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace morvane::cli {

/// What work is counted in.
enum class progress_unit { bytes, dvis };

/// The line of one piece of work. It appears when the work takes longer than a second.
struct progress_line {
  std::string name{};  // what is worked on; empty when there is nobody to tell
  std::uint64_t total = 0;
  progress_unit unit = progress_unit::bytes;
  std::chrono::steady_clock::time_point begin{};
  std::chrono::steady_clock::time_point shown{};  // when the line was last written
  bool is_visible = false;
};

/// Begins work of so many bytes or DVIs. Nothing is shown where standard error is no terminal.
progress_line begin_progress(std::string_view name, std::uint64_t total, bool quiet,
                             progress_unit unit = progress_unit::bytes);

/// Tells that so much of the work is done.
void show_progress(progress_line& progress, std::uint64_t done);

/// Takes the line away, so that something else can be written.
void hide_progress(progress_line& progress);

/// The text of the line: "net.bin: 512 of 1024 MiB, 256 MiB/s", "in: 3 of 10 DVIs".
std::string progress_text(const progress_line& progress, std::uint64_t done, double seconds);

}  // namespace morvane::cli

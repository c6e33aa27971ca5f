// Results on standard output, every write checked; everything else on standard error.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "cli/output/progress.h"

namespace morvane::cli {

/// Stands for standard output where a path is asked for.
inline constexpr std::string_view standard_output_path = "-";

/// Stands for standard input in the same way.
inline constexpr std::string_view standard_input_path = standard_output_path;

/// How messages name it.
inline constexpr const char* standard_output_name = "standard output";

/// The exit status of every command.
enum exit_status : int {
  status_fine = 0,
  status_findings = 1,  // findings, or differences
  status_failed = 2     // wrong usage, or a file that could not be read or written
};

/// The bytes that are gathered before they are written.
inline constexpr std::size_t max_pending = std::size_t{64} * 1024;

/// Standard output with the results that are still to be written, and how to speak to the user.
struct console {
  std::string pending{};
  int descriptor = 1;                // where they go; 2 where standard output takes a file
  bool quiet = false;                // no warnings, summaries, differences or progress
  bool warnings_are_errors = false;  // also for that
  bool colour = false;               // severities in colour
  bool is_terminal = false;          // a person reads what is written
  bool gathers = false;              // keeps all results, for a file
  progress_line progress{};
};

/// Opens the descriptors 0, 1 and 2 that are closed, so that no other file gets their numbers, but
/// such that reading and writing them still fails. Ignores SIGPIPE and SIGXFSZ: a closed pipe, and
/// a file that would become larger than the user allows, are errors of write.
void open_standard_streams();

/// Whether a person reads standard output and standard error: both are terminals.
bool is_on_terminal();

/// Whether standard output shows colours: a terminal that is not dumb, and NO_COLOR is not set.
bool has_colours();

/// Writes all bytes, and waits where a descriptor takes none now. Returns 0, or the errno of the
/// failure.
int write_checked(int descriptor, std::span<const std::byte> bytes);
int write_checked(int descriptor, std::string_view text);

/// The system's reason for an errno: "No such file or directory".
std::string reason_of(int error);

/// The reason for what is neither a file nor a folder.
inline constexpr std::string_view no_regular_file = "it is no regular file";

/// Puts a text among the results. Throws std::system_error when standard output does not take them,
/// and so ends the command; so below.
void print_result(console& streams, std::string_view text);

/// Writes the results that are left.
void flush_results(console& streams);

/// Prints "morvane: TEXT" on standard error.
void print_message(std::string_view text);

/// Prints "morvane: PATH: " and the system's reason for an errno. Returns status_failed.
int report_file_error(std::string_view path, int error);

}  // namespace morvane::cli

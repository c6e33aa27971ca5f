// What a command does with its findings: leaves out what is accepted, counts, and writes reports.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/files/atomic_replacement.h"
#include "cli/findings/baseline.h"
#include "cli/findings/finding_formats.h"
#include "cli/findings/findings.h"
#include "cli/output/console.h"

namespace morvane::cli {

/// A report that is asked for: its format, and its file; standard output when the path is empty.
struct wanted_report {
  const finding_format* format;
  std::string path{};
};

/// What a user decides about findings, whatever the command.
struct finding_options {
  std::vector<wanted_report> reports{};  // none: as text on standard output
  std::vector<std::string> ignored{};    // codes
  std::string baseline{};                // path of accepted findings; none when empty
  std::string new_baseline{};            // path for those that are found; none when empty
  bool warnings_are_errors = false;
  bool all = false;  // also what follows from another finding
};

/// How many findings of each severity there were, how many were files that cannot be read, and how
/// many the baseline accepts.
struct finding_counts {
  std::uint64_t errors = 0;
  std::uint64_t warnings = 0;
  std::uint64_t notes = 0;
  std::uint64_t unreadable = 0;
  std::uint64_t accepted = 0;
};

/// Counts a finding.
void count(const finding& found, finding_counts& counts);

/// The exit status of a command that found this.
int status_of(const finding_counts& counts, bool warnings_are_errors);

/// "2 errors, 1 warning", and ", 3 accepted" if there are any; notes are counted on request.
std::string counts_text(const finding_counts& counts, bool with_notes);

/// " with 3 accepted findings" for a verdict; nothing without any.
std::string accepted_text(const finding_counts& counts);

/// Where findings go, and what they amount to.
struct finding_writer {
  /// The options must outlive the writer.
  finding_writer(console& output, const finding_options& chosen);

  console& streams;
  const finding_options& options;
  std::deque<finding_report> reports{};
  std::string_view folder{};            // that files are in; entries of a baseline do not name it
  finding_counts counts{};              // since begin_findings
  const finding_kind* worst = nullptr;  // the first kind of the greatest severity
  severity worst_level = severity::note;
  open_entries accepted{};           // that did not occur yet
  std::vector<std::string> found{};  // entries for the new baseline
  atomic_replacement new_baseline{};
  bool has_hidden_error = false;  // an error was ignored or accepted
};

/// Whether a file that is to be written would take the place of an input.
using input_test = std::function<bool(const atomic_replacement& file)>;

/// Reads the baseline, finds the places of all files to write, and opens the reports. Returns an
/// exit status, status_failed after a message.
int begin_output(finding_writer& output, const input_test& is_input);

/// Hands each JSON document to the function, which writes what only JSON says besides the findings.
void write_json(finding_writer& output, const std::function<void(json_writer& json)>& write);

/// Writes a line among the findings for people, unless they asked for quiet.
void write_text(finding_writer& output, std::string_view line);

/// Whether standard output has the findings as text.
bool is_for_people(const finding_writer& output);

/// From now on, findings are about files in this folder.
void set_folder(finding_writer& output, std::string_view folder);

/// Opens the list of findings about files in a folder, and counts from 0.
void begin_findings(finding_writer& output, std::string_view folder);

/// Counts a finding and writes it, unless it is ignored or accepted. What follows from it is
/// counted at the end of its text, or written as findings of its own behind it. As a line, one that
/// is not an error is only written when the user did not ask for quiet. A file that cannot be read
/// is told in any case: nobody knows what was not found in it.
void write_finding(finding_writer& output, const finding& found);

/// Tells which entries of the baseline no finding was like. Those of notes only count with notes.
void write_stale_entries(finding_writer& output, bool with_notes);

void end_findings(finding_writer& output);

/// The same for a folder: with how many findings there were or, with an errno, why there are none.
void end_findings(finding_writer& output, std::string_view folder, int error);

/// Writes that the system did not let the program read a package or folder, except as text.
void write_failure(finding_writer& output, std::string_view path, int error);

/// Closes the reports and writes the files; the new baseline only if the run did not fail. Returns
/// the exit status, from that of the run.
int end_output(finding_writer& output, int status);

/// On a terminal, tells once which command comes next: that which explains the worst finding;
/// without findings the one that is given, if there is one.
void write_next_step(const finding_writer& output, std::string_view without_findings);

}  // namespace morvane::cli

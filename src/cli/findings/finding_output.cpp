#include "cli/findings/finding_output.h"

#include <algorithm>
#include <utility>

#include "cli/output/printable_text.h"
#include "io/file.h"

namespace morvane::cli {

namespace {

constexpr const finding_kind* unreadable = kind_of("unreadable-file");
constexpr const finding_kind* stale = kind_of("stale-baseline-entry");

bool is_ignored(const finding_writer& output, const finding_kind* kind) {
  return kind != unreadable &&
         std::ranges::find(output.options.ignored, kind->code) != output.options.ignored.end();
}

/// Whether the baseline accepts a finding. Writes it down for a new one.
bool is_accepted(finding_writer& output, const finding& found) {
  const finding_options& options = output.options;
  const bool has_entries = !options.baseline.empty() || !options.new_baseline.empty();
  if (!has_entries || found.kind == unreadable || found.kind == stale) {
    return false;
  }
  std::string entry = baseline_entry(found, output.folder);
  const bool is_known = accepts(output.accepted, entry);
  output.counts.accepted += is_known ? 1 : 0;
  if (!options.new_baseline.empty()) {
    output.found.push_back(std::move(entry));
  }
  return is_known;
}

void write_one(finding_writer& output, const finding& found) {
  count(found, output.counts);
  if (output.worst == nullptr || level_of(found) < output.worst_level) {
    output.worst = found.kind;
    output.worst_level = level_of(found);
  }
  for (finding_report& report : output.reports) {
    report.format.write(report, found);
  }
}

/// Writes a finding that others follow from.
void write_group(finding_writer& output, finding cause) {
  std::erase_if(cause.rest, [&](const finding& effect) { return is_ignored(output, effect.kind); });
  if (!output.options.all) {
    cause.text = text_with_rest(cause);
    cause.rest.clear();
  }
  const std::vector<finding> rest = std::exchange(cause.rest, {});
  write_one(output, cause);
  for (const finding& effect : rest) {
    write_one(output, effect);
  }
}

/// Finds the place of a file, which must be neither an input nor one of the files before it.
int find_place(finding_writer& output, const std::string& path, atomic_replacement& file,
               const input_test& is_input) {
  if (const int error = file.find(path); error != 0) {
    return report_place_error(path, error);
  }
  const auto is_same = [&](const finding_report& other) {
    return &other.file != &file && !other.path.empty() && are_same_file(other.file, file);
  };
  if (is_input(file) || std::ranges::any_of(output.reports, is_same)) {
    print_message(joined(printable(path), ": is an input or another output of this run"));
    return status_failed;
  }
  return status_fine;
}

}  // namespace

finding_writer::finding_writer(console& output, const finding_options& chosen)
    : streams(output), options(chosen) {
  streams.warnings_are_errors = options.warnings_are_errors;
  for (const wanted_report& target : options.reports) {
    reports.emplace_back(*target.format, target.path, streams);
  }
  if (reports.empty()) {
    reports.emplace_back(*find_format("text"), "", streams);
  }
}

void count(const finding& found, finding_counts& counts) {
  counts.unreadable += found.kind == unreadable ? 1 : 0;
  switch (level_of(found)) {
    case severity::error:
      ++counts.errors;
      break;
    case severity::warning:
      ++counts.warnings;
      break;
    default:
      ++counts.notes;
  }
}

int status_of(const finding_counts& counts, bool warnings_are_errors) {
  if (counts.unreadable != 0) {
    return status_failed;
  }
  const bool is_clean = counts.errors == 0 && (counts.warnings == 0 || !warnings_are_errors);
  return is_clean ? status_fine : status_findings;
}

std::string counts_text(const finding_counts& counts, bool with_notes) {
  std::string text =
      joined(count_of(counts.errors, "error"), ", ", count_of(counts.warnings, "warning"));
  if (with_notes) {
    text += joined(", ", count_of(counts.notes, "note"));
  }
  return counts.accepted == 0 ? text : joined(text, ", ", counts.accepted, " accepted");
}

std::string accepted_text(const finding_counts& counts) {
  if (counts.accepted == 0) {
    return {};
  }
  return joined(" with ", count_of(counts.accepted, "accepted finding"));
}

int begin_output(finding_writer& output, const input_test& is_input) {
  const std::string& baseline = output.options.baseline;
  if (const int error = baseline.empty() ? 0 : read_baseline(baseline, output.accepted);
      error != 0) {
    return report_file_error(baseline, error);
  }
  int status = status_fine;
  for (finding_report& report : output.reports) {
    if (status == status_fine && !report.path.empty()) {
      status = find_place(output, report.path, report.file, [&](const atomic_replacement& file) {
        return is_input(file) || (file.replaced() && file.replaced() == identity_at(baseline));
      });
    }
  }
  if (status == status_fine && !output.options.new_baseline.empty()) {
    status = find_place(output, output.options.new_baseline, output.new_baseline, is_input);
  }
  if (status == status_fine) {
    for (finding_report& report : output.reports) {
      report.format.begin(report);
    }
  }
  return status;
}

void write_json(finding_writer& output, const std::function<void(json_writer& json)>& write) {
  for (finding_report& report : output.reports) {
    if (is_json(report)) {
      write(report.json);
    }
  }
}

void write_text(finding_writer& output, std::string_view line) {
  for (finding_report& report : output.reports) {
    if (is_text(report) && !output.streams.quiet) {
      print_result(report.json.streams, line);
    }
  }
}

bool is_for_people(const finding_writer& output) {
  return std::ranges::any_of(output.reports, [](const finding_report& report) {
    return is_text(report) && report.path.empty();
  });
}

void set_folder(finding_writer& output, std::string_view folder) {
  output.folder = folder;
  for (finding_report& report : output.reports) {
    report.folder = folder;
  }
}

void begin_findings(finding_writer& output, std::string_view folder) {
  output.counts = {};
  set_folder(output, folder);
  write_json(output, [](json_writer& json) { begin_array(json, "findings"); });
}

void write_finding(finding_writer& output, const finding& found) {
  if (is_ignored(output, found.kind) || is_accepted(output, found)) {
    output.has_hidden_error = output.has_hidden_error || level_of(found) == severity::error;
  } else if (found.rest.empty()) {
    write_one(output, found);
  } else {
    write_group(output, found);
  }
}

void write_stale_entries(finding_writer& output, bool with_notes) {
  for (const auto& [entry, line] : output.accepted) {
    const finding_kind* const kind = find_kind(std::string_view(entry).substr(0, entry.find(' ')));
    const bool is_looked_for = kind == nullptr || (!is_ignored(output, kind) &&
                                                   (with_notes || kind->level != severity::note));
    if (is_looked_for) {
      write_finding(output,
                    {.kind = stale,
                     .file = output.options.baseline,
                     .place = {.line = line, .column = 1},
                     .text = joined("no finding is like this entry any more: ", printable(entry))});
    }
  }
}

void end_findings(finding_writer& output) {
  write_json(output, [](json_writer& json) { end_array(json); });
}

void end_findings(finding_writer& output, std::string_view folder, int error) {
  end_findings(output);
  if (error != 0) {
    return write_failure(output, folder, error);
  }
  write_json(output, [&](json_writer& json) {
    write_member(json, "errors", output.counts.errors);
    write_member(json, "warnings", output.counts.warnings);
    write_member(json, "notes", output.counts.notes);
  });
}

void write_failure(finding_writer& output, std::string_view path, int error) {
  for (finding_report& report : output.reports) {
    report.format.fail(report, path, reason_of(error));
  }
}

int end_output(finding_writer& output, int status) {
  for (finding_report& report : output.reports) {
    report.format.end(report);
    if (!report.path.empty()) {
      status = std::max(
          status, write_file(report.file, report.path, report.gathered.pending, output.streams));
    }
  }
  flush_results(output.streams);
  const std::string& path = output.options.new_baseline;
  if (!path.empty() && status != status_failed) {
    const std::string text = baseline_text(output.found);
    status = std::max(status, write_file(output.new_baseline, path, text, output.streams));
  }
  return status;
}

void write_next_step(const finding_writer& output, std::string_view without_findings) {
  const std::string text = output.worst == nullptr ? std::string(without_findings)
                                                   : joined("morvane explain ", output.worst->code);
  if (output.streams.is_terminal && !output.streams.quiet && is_for_people(output) &&
      !text.empty()) {
    print_message(joined("next: ", text));
  }
}

}  // namespace morvane::cli

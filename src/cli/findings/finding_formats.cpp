#include "cli/findings/finding_formats.h"

#include <algorithm>
#include <array>
#include <utility>

#include "cli/findings/baseline.h"
#include "cli/findings/finding_sarif.h"
#include "cli/output/printable_text.h"
#include "cli/package/digest.h"

namespace morvane::cli {

namespace {

void write_nothing(finding_report& /*report*/) {}

/// "12:26" or "0x1f4"
std::string place_text(const finding_place& place) {
  if (place.line == 0) {
    return hexadecimal(place.offset);
  }
  return joined(place.line, ":", place.column);
}

std::string shown_severity(severity level, bool colour) {
  // Bold red, magenta and cyan.
  constexpr std::array<std::string_view, 3> colours{"\x1b[1;31m", "\x1b[1;35m", "\x1b[1;36m"};
  const std::string_view name = name_of(level);
  return joined(colour ? colours.at(static_cast<std::size_t>(level)) : "", name,
                colour ? "\x1b[0m" : "");
}

void write_line(finding_report& report, const finding& found) {
  console& streams = report.json.streams;
  const severity level = level_of(found);
  const bool is_error =
      level == severity::error || (level == severity::warning && streams.warnings_are_errors);
  if (!streams.quiet || is_error) {
    print_result(streams, finding_line(found, streams.colour));
  }
}

/// A message on standard error says it.
void leave_failure_out(finding_report& /*report*/, std::string_view /*path*/,
                       std::string_view /*reason*/) {}

void begin_json(finding_report& report) {
  begin_object(report.json);
}

void write_json_finding(finding_report& report, const finding& found) {
  json_writer& json = report.json;
  begin_object(json);
  write_member(json, "severity", name_of(level_of(found)));
  write_member(json, "code", found.kind->code);
  write_member(json, "file", found.file);
  if (found.place.line == 0) {
    write_member(json, "offset", found.place.offset);
  } else {
    write_member(json, "line", found.place.line);
    write_member(json, "column", found.place.column);
  }
  write_member(json, "text", found.text);
  end_object(json);
}

void write_json_failure(finding_report& report, std::string_view /*path*/,
                        std::string_view reason) {
  write_member(report.json, "failure", reason);
}

void end_json(finding_report& report) {
  end_object(report.json);
  end_document(report.json);
}

/// Where only files have a place for a failure, it is a finding.
void write_failed_file(finding_report& report, std::string_view path, std::string_view reason) {
  report.format.write(report, {.kind = kind_of("unreadable-file"),
                               .file = path,
                               .place = whole_file,
                               .text = std::string(reason)});
}

/// These tools know no offsets: those stand in the text.
std::string text_with_offset(const finding& found) {
  return found.place.line == 0 ? joined(hexadecimal(found.place.offset), ": ", found.text)
                               : found.text;
}

std::uint32_t line_of(const finding& found) {
  return std::max(found.place.line, 1U);
}

void begin_gitlab(finding_report& report) {
  begin_array(report.json);
}

/// The same for the same finding of another run, and another for each finding of one run.
std::string fingerprint(finding_report& report, const finding& found) {
  const std::string entry = baseline_entry(found, report.folder);
  return xxh3_128(joined(entry, "\n", report.known[entry]++));
}

void write_gitlab_issue(finding_report& report, const finding& found) {
  constexpr std::array<std::string_view, 3> severities{"major", "minor", "info"};
  json_writer& json = report.json;
  begin_object(json);
  write_member(json, "description", text_with_offset(found));
  write_member(json, "check_name", found.kind->code);
  write_member(json, "fingerprint", fingerprint(report, found));
  write_member(json, "severity", severities.at(static_cast<std::size_t>(level_of(found))));
  begin_object(json, "location");
  // Paths must not begin in this way.
  write_member(json, "path", found.file.substr(found.file.starts_with("./") ? 2 : 0));
  begin_object(json, "lines");
  write_member(json, "begin", line_of(found));
  end_object(json);
  end_object(json);
  end_object(json);
}

void end_gitlab(finding_report& report) {
  end_array(report.json);
  end_document(report.json);
}

/// A text for GitHub, with some characters as their code: in properties also what ends these.
std::string escaped(std::string_view text, std::string_view escaped_characters) {
  std::string result;
  for (const char character : text) {
    if (escaped_characters.find(character) == std::string_view::npos) {
      result += character;
    } else {
      result += '%';
      append_digits(result, static_cast<std::uint8_t>(character), "0123456789ABCDEF");
    }
  }
  return result;
}

void write_github_annotation(finding_report& report, const finding& found) {
  constexpr std::array<std::string_view, 3> commands{"error", "warning", "notice"};
  constexpr std::string_view in_property = "%\r\n:,";
  const std::string column =
      found.place.line == 0 ? std::string() : joined(",col=", found.place.column);
  print_result(report.json.streams,
               joined("::", commands.at(static_cast<std::size_t>(level_of(found))),
                      " file=", escaped(printable(found.file), in_property),
                      ",line=", line_of(found), column, ",title=", found.kind->code,
                      "::", escaped(text_with_offset(found), "%\r\n"), "\n"));
}

constexpr std::array formats{
    finding_format{"text", write_nothing, write_line, leave_failure_out, write_nothing},
    finding_format{"json", begin_json, write_json_finding, write_json_failure, end_json},
    finding_format{"sarif", begin_sarif, write_sarif_result, keep_sarif_failure, end_sarif},
    finding_format{"gitlab", begin_gitlab, write_gitlab_issue, write_failed_file, end_gitlab},
    finding_format{"github", write_nothing, write_github_annotation, write_failed_file,
                   write_nothing},
};

}  // namespace

finding_report::finding_report(const finding_format& chosen, std::string target, console& output)
    : format(chosen),
      path(std::move(target)),
      gathered{.quiet = output.quiet,
               .warnings_are_errors = output.warnings_are_errors,
               .gathers = true},
      json{.streams = path.empty() ? output : gathered} {}

bool is_text(const finding_report& report) {
  return report.format.write == write_line;
}

bool is_json(const finding_report& report) {
  return report.format.write == write_json_finding;
}

const finding_format* find_format(std::string_view name) {
  const auto* const found = std::ranges::find(formats, name, &finding_format::name);
  return found == formats.end() ? nullptr : found;
}

std::string finding_line(const finding& found, bool colour) {
  return joined(printable(found.file), ":", place_text(found.place), ": ",
                shown_severity(level_of(found), colour), ": ", found.text, " [", found.kind->code,
                "]\n");
}

}  // namespace morvane::cli

#include "cli/findings/finding_output.h"

#include <algorithm>
#include <array>
#include <utility>

#include "cli/findings/finding_sarif.h"
#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

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

void write_finding_line(console& streams, const finding& found) {
  const severity level = level_of(found);
  const bool is_error =
      level == severity::error || (level == severity::warning && streams.warnings_are_errors);
  if (!streams.quiet || is_error) {
    print_result(streams, finding_line(found, streams.colour));
  }
}

void write_finding_object(json_writer& json, const finding& found) {
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

}  // namespace

std::optional<finding_format> finding_format_named(std::string_view name) {
  constexpr std::array<std::pair<std::string_view, finding_format>, 3> formats{
      {{"text", finding_format::text},
       {"json", finding_format::json},
       {"sarif", finding_format::sarif}}};
  const auto* const found =
      std::ranges::find(formats, name, &std::pair<std::string_view, finding_format>::first);
  return found == formats.end() ? std::nullopt : std::optional(found->second);
}

void count(const finding& found, finding_counts& counts) {
  counts.unreadable += found.kind == kind_of("unreadable-file") ? 1 : 0;
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

std::string finding_line(const finding& found, bool colour) {
  return joined(printable(found.file), ":", place_text(found.place), ": ",
                shown_severity(level_of(found), colour), ": ", found.text, " [", found.kind->code,
                "]\n");
}

std::string counts_text(const finding_counts& counts, bool with_notes) {
  std::string text =
      joined(count_of(counts.errors, "error"), ", ", count_of(counts.warnings, "warning"));
  return with_notes ? joined(text, ", ", count_of(counts.notes, "note")) : text;
}

void begin_output(finding_writer& output) {
  if (output.format == finding_format::json) {
    begin_object(output.json);
  } else if (output.format == finding_format::sarif) {
    begin_sarif(output.json);
  }
}

json_writer* json_of(finding_writer& output) {
  return output.format == finding_format::json ? &output.json : nullptr;
}

void begin_findings(finding_writer& output) {
  output.counts = {};
  if (json_writer* json = json_of(output)) {
    begin_array(*json, "findings");
  }
}

void write_finding(finding_writer& output, const finding& found) {
  count(found, output.counts);
  switch (output.format) {
    case finding_format::json:
      return write_finding_object(output.json, found);
    case finding_format::sarif:
      return write_sarif_result(output.json, found);
    default:
      return write_finding_line(output.json.streams, found);
  }
}

void end_findings(finding_writer& output) {
  if (json_writer* json = json_of(output)) {
    end_array(*json);
  }
}

void write_failure(finding_writer& output, std::string_view path, int error) {
  const std::string reason = reason_of(error);
  if (json_writer* json = json_of(output)) {
    write_member(*json, "failure", reason);
  }
  output.failures.push_back(joined(path, ": ", reason));
}

void end_output(finding_writer& output) {
  if (output.format == finding_format::json) {
    end_object(output.json);
    end_document(output.json);
  } else if (output.format == finding_format::sarif) {
    end_sarif(output.json, output.failures);
  }
}

}  // namespace morvane::cli

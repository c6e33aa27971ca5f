#include "cli/findings/finding_sarif.h"

#include <array>

#include "cli/findings/explanations.h"
#include "cli/output/printable_text.h"
#include "cli/output/program_version.h"

namespace morvane::cli {

namespace {

bool stands_in_uris(char character) {
  constexpr std::string_view others = "-._~/";
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         (character >= '0' && character <= '9') || others.find(character) != std::string_view::npos;
}

void write_message(json_writer& json, std::string_view name, std::string_view text) {
  begin_object(json, name);
  write_member(json, "text", text);
  end_object(json);
}

void write_rule(json_writer& json, const finding_kind& kind) {
  begin_object(json);
  write_member(json, "id", kind.code);
  write_message(json, "shortDescription", kind.meaning);
  write_message(json, "help", explanation_of(kind.code));
  begin_object(json, "defaultConfiguration");
  write_member(json, "level", name_of(kind.level));
  end_object(json);
  end_object(json);
}

void write_region(json_writer& json, const finding_place& place) {
  begin_object(json, "region");
  if (place.line == 0) {
    write_member(json, "byteOffset", place.offset);
  } else {
    write_member(json, "startLine", place.line);
    write_member(json, "startColumn", place.column);
  }
  end_object(json);
}

void write_location(json_writer& json, const finding& found) {
  begin_object(json);
  begin_object(json, "physicalLocation");
  begin_object(json, "artifactLocation");
  write_member(json, "uri", uri_of(found.file));
  end_object(json);
  write_region(json, found.place);
  end_object(json);
  end_object(json);
}

void write_failure(json_writer& json, std::string_view failure) {
  begin_object(json);
  write_member(json, "level", "error");
  write_message(json, "message", failure);
  end_object(json);
}

}  // namespace

std::string uri_of(std::string_view path) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  // A colon in the first part of a path would make a scheme of it, so it is escaped as well.
  std::string uri = path.starts_with('/') ? "file://" : "";
  for (const char character : path) {
    if (stands_in_uris(character)) {
      uri += character;
    } else {
      uri += '%';
      append_digits(uri, static_cast<std::uint8_t>(character), digits);
    }
  }
  return uri;
}

void begin_sarif(finding_report& report) {
  json_writer& json = report.json;
  begin_object(json);
  write_member(json, "$schema", "https://json.schemastore.org/sarif-2.1.0.json");
  write_member(json, "version", "2.1.0");
  begin_array(json, "runs");
  begin_object(json);
  begin_object(json, "tool");
  begin_object(json, "driver");
  write_member(json, "name", "morvane");
  write_member(json, "version", program_version);
  begin_array(json, "rules");
  for (const finding_kind& kind : finding_kinds) {
    write_rule(json, kind);
  }
  end_array(json);
  end_object(json);
  end_object(json);
  begin_array(json, "results");
}

void write_sarif_result(finding_report& report, const finding& found) {
  json_writer& json = report.json;
  begin_object(json);
  write_member(json, "ruleId", found.kind->code);
  write_member(json, "ruleIndex", found.kind - finding_kinds.data());
  write_member(json, "level", name_of(level_of(found)));
  write_message(json, "message", found.text);
  begin_array(json, "locations");
  write_location(json, found);
  end_array(json);
  end_object(json);
}

void keep_sarif_failure(finding_report& report, std::string_view path, std::string_view reason) {
  report.failures.push_back(joined(path, ": ", reason));
}

void end_sarif(finding_report& report) {
  json_writer& json = report.json;
  end_array(json);
  begin_array(json, "invocations");
  begin_object(json);
  write_member(json, "executionSuccessful", report.failures.empty());
  begin_array(json, "toolExecutionNotifications");
  for (const std::string& failure : report.failures) {
    write_failure(json, failure);
  }
  end_array(json);
  end_object(json);
  end_array(json);
  end_object(json);
  end_array(json);
  end_object(json);
  end_document(json);
}

}  // namespace morvane::cli

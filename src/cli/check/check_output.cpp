#include "cli/check/check_output.h"

#include <cstring>

#include "cli/check/verdict.h"
#include "cli/findings/finding_sarif.h"
#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

void write_summary(json_writer& json, const package_summary& summary, bool is_sound) {
  end_array(json);
  write_member(json, "sound", is_sound);
  write_member(json, "dvis", summary.dvis);
  write_member(json, "ports", summary.ports);
  write_member(json, "vproc", summary.has_vproc);
  write_member(json, "bytes", summary.bytes);
  end_object(json);
}

}  // namespace

check_output begin_check(console& streams, finding_format format) {
  check_output output{.format = format, .json = {.streams = streams}};
  if (format == finding_format::json) {
    begin_object(output.json);
    begin_array(output.json, "packages");
  } else if (format == finding_format::sarif) {
    begin_sarif(output.json);
  }
  return output;
}

void begin_package(check_output& output, std::string_view path) {
  if (output.format == finding_format::json) {
    begin_object(output.json);
    write_member(output.json, "file", path);
    begin_array(output.json, "findings");
  }
}

void write_finding(check_output& output, const finding& found) {
  switch (output.format) {
    case finding_format::json:
      return write_finding_object(output.json, found);
    case finding_format::sarif:
      return write_sarif_result(output.json, found);
    default:
      return write_finding_line(output.json.streams, found);
  }
}

void end_package(check_output& output, std::string_view path, const package_summary& summary,
                 bool is_sound) {
  console& streams = output.json.streams;
  if (output.format == finding_format::json) {
    write_summary(output.json, summary, is_sound);
  } else if (output.format == finding_format::text && is_sound && !streams.quiet) {
    print_result(streams, verdict_line(path, "sound", summary));
  }
}

void write_open_failure(check_output& output, std::string_view path, int error) {
  flush_results(output.json.streams);
  report_file_error(path, error);
  // NOLINTNEXTLINE(concurrency-mt-unsafe): one thread
  const std::string reason = std::strerror(error);
  if (output.format == finding_format::json) {
    begin_object(output.json);
    write_member(output.json, "file", path);
    write_member(output.json, "failure", reason);
    end_object(output.json);
  }
  output.failures.push_back(joined(path, ": ", reason));
}

void end_check(check_output& output) {
  if (output.format == finding_format::json) {
    end_array(output.json);
    end_object(output.json);
    end_document(output.json);
  } else if (output.format == finding_format::sarif) {
    end_sarif(output.json, output.failures);
  }
}

}  // namespace morvane::cli

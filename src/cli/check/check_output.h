// The verdicts of morvane check, in every format.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/check/check_package.h"
#include "cli/findings/finding_output.h"
#include "cli/output/console.h"
#include "cli/output/json_writer.h"

namespace morvane::cli {

/// What is written to, and how. The packages come one after the other: begin_package, findings,
/// end_package; or unread_package.
struct check_output {
  finding_format format;
  json_writer json;
  std::vector<std::string> failures{};  // what SARIF tells at its end
};

check_output begin_check(console& streams, finding_format format);
void begin_package(check_output& output, std::string_view path);
void write_finding(check_output& output, const finding& found);
void end_package(check_output& output, std::string_view path, const package_summary& summary,
                 bool is_sound);

/// A package that the system did not let the program read. The reason is told on standard error
/// too.
void write_open_failure(check_output& output, std::string_view path, int error);

void end_check(check_output& output);

}  // namespace morvane::cli

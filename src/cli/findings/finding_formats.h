// The formats that findings can be written in.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "cli/files/atomic_replacement.h"
#include "cli/findings/findings.h"
#include "cli/output/console.h"
#include "cli/output/json_writer.h"

namespace morvane::cli {

struct finding_format;

/// Findings on their way to standard output or to a file.
struct finding_report {
  /// Standard output when the path is empty.
  finding_report(const finding_format& chosen, std::string target, console& output);

  const finding_format& format;
  std::string path;
  console gathered;           // what goes to a file when it is complete
  json_writer json;           // and what it leads to, also for text
  std::string_view folder{};  // as in a finding_writer
  atomic_replacement file{};
  std::vector<std::string> failures{};                     // what SARIF tells at its end
  std::unordered_map<std::string, std::uint32_t> known{};  // how often gitlab wrote an entry
};

/// A row of the table of formats.
struct finding_format {
  std::string_view name;
  void (*begin)(finding_report& report);
  void (*write)(finding_report& report, const finding& found);
  /// Writes that a file could not be read.
  void (*fail)(finding_report& report, std::string_view path, std::string_view reason);
  void (*end)(finding_report& report);
};

/// Whether a report is for people, or a JSON document that says more than the findings.
bool is_text(const finding_report& report);
bool is_json(const finding_report& report);

/// The format of a name: "text", "json", "sarif", "gitlab" or "github"; null for another name.
const finding_format* find_format(std::string_view name);

/// A finding as a line for people: "net.bin:0x1f4: error: the DVI table is cut [dvi-table-cut]".
std::string finding_line(const finding& found, bool colour);

}  // namespace morvane::cli

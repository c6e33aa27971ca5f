#include "cli/explain/explain_command.h"

#include <algorithm>
#include <string_view>

#include "cli/findings/explanations.h"
#include "cli/findings/findings.h"
#include "cli/output/printable_text.h"
#include "cli/output/wrapped_text.h"

namespace morvane::cli {

namespace {

/// Every code with its meaning, the errors first.
void list_codes(console& streams) {
  constexpr std::size_t indent = 2;
  const std::size_t width = std::ranges::max(finding_kinds, {}, [](const finding_kind& kind) {
                              return kind.code.size();
                            }).code.size();
  for (const severity level : {severity::error, severity::warning, severity::note}) {
    print_result(streams, joined(level == severity::error ? "" : "\n", name_of(level), "s:\n"));
    for (const finding_kind& kind : finding_kinds) {
      if (kind.level == level) {
        const std::string gap(width + indent - kind.code.size(), ' ');
        print_result(streams,
                     joined("  ", kind.code, gap, wrapped(kind.meaning, indent + width + indent)));
      }
    }
  }
}

}  // namespace

int run_explain(const explain_options& options, console& streams) {
  const auto unknown = std::ranges::find(options.codes, nullptr, find_kind);
  if (unknown != options.codes.end()) {
    print_message(
        joined("there is no code ", in_quotes(*unknown), "; morvane explain lists all codes"));
    return status_failed;
  }
  if (options.codes.empty()) {
    list_codes(streams);
  }
  std::string_view before;
  for (const std::string& code : options.codes) {
    print_result(streams, joined(before, code, " (", name_of(find_kind(code)->level), ")\n\n",
                                 explanation_of(code)));
    before = "\n";
  }
  return status_fine;
}

}  // namespace morvane::cli

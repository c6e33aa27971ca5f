#include "cli/check/verdict.h"

#include "cli/output/printable_text.h"

namespace morvane::cli {

std::string verdict_line(std::string_view path, std::string_view word,
                         const package_summary& summary) {
  return joined(printable(path), ": ", word, ", ", count_of(summary.dvis, "DVI"), ", ",
                count_of(summary.ports, "port"), summary.has_vproc ? ", with" : ", without",
                " vproc records, ", count_of(summary.bytes, "byte"), "\n");
}

}  // namespace morvane::cli

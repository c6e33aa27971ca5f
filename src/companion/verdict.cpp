#include "companion/verdict.h"

#include "companion/printable_text.h"

namespace morvane::companion {

std::string counted(std::uint64_t number, std::string_view thing) {
  return joined(number, " ", thing, number == 1 ? "" : "s");
}

std::string verdict_line(std::string_view path, std::string_view word,
                         const package_summary& summary) {
  return joined(printable(path), ": ", word, ", ", counted(summary.dvis, "DVI"), ", ",
                counted(summary.ports, "port"), summary.has_vproc ? ", with" : ", without",
                " vproc records, ", counted(summary.bytes, "byte"), "\n");
}

}  // namespace morvane::companion

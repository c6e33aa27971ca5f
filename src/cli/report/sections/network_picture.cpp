#include "cli/report/sections/page_parts.h"
#include "cli/report/sections/sections.h"

namespace morvane::cli {

namespace {

/// Whether every port gets a row.
bool has_port_rows(const page_content& content) {
  constexpr std::uint64_t max_dvis = 30;
  constexpr std::uint64_t max_ports = 400;
  return content.package.view.sound_dvis <= max_dvis && content.totals.ports <= max_ports;
}

void write_sentence(const page_content& content, page_output& out) {
  const auto differing = content.flow.mismatches.size() - 1;
  if (content.flow.by_input.empty()) {
    write(out, "<p>No DVI feeds another one");
  } else {
    write(out, "<p>", counted(content.flow.by_input.size(), "connection"), " between ",
          counted(content.package.view.sound_dvis, "DVI"),
          ", from top to bottom in the order of the package. An input gets its data from the last "
          "output of its name before it");
  }
  if (differing != 0) {
    write(out, "; at <b class=\"bad\">", counted(differing, "input"),
          "</b> dims, format, size or offset differ from the output's");
  }
  write(out, ". Dims are ", dims_letters, ".</p>\n");
}

}  // namespace

void write_network(const page_content& content, page_output& out) {
  write(out, section_begin("network", "Network"));
  if (content.package.view.sound_dvis == 0) {
    write(out, "<p>There is no DVI to show.</p>\n</section>\n");
    return;
  }
  write_sentence(content, out);
  if (has_port_rows(content)) {
    write_port_rows(content, out);
  } else {
    write_dvi_rows(content, out);
  }
  write(out, left_out(content.package.view), "</section>\n");
}

}  // namespace morvane::cli

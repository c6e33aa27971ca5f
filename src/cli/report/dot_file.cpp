#include "cli/report/dot_file.h"

#include "cli/output/printable_text.h"
#include "cli/package/package_walk.h"

namespace morvane::cli {

namespace {

/// A text between double quotes. Graphviz reads escapes and HTML entities in it.
std::string dot_text(std::string_view text) {
  std::string shown;
  for (const char byte : printable(text)) {
    switch (byte) {
      case '\\':
        shown += "\\\\";
        break;
      case '"':
        shown += "\\\"";
        break;
      case '&':
        shown += "&amp;";
        break;
      default:
        shown += byte;
    }
  }
  return shown;
}

/// Name, dims and format of a port, below one another.
std::string port_label(const morvane_view_port& port) {
  return joined(dot_text(str(port.port_name)), "\\n", port.P, "x", port.D, "x", port.H, "x", port.W,
                "\\nformat ", port.dram_format);
}

void write_input(const network_flow& flow, const morvane_view_port& port, const record_name& name,
                 page_output& out) {
  const connection* const source = connection_to(flow, {name.dvi, name.index});
  if (source == nullptr) {
    write(out, "  outside_to_", name.dvi, "_", name.index, " [label=\"outside\", shape=plain]\n",
          "  outside_to_", name.dvi, "_", name.index, " -> dvi_", name.dvi, " [label=\"",
          port_label(port), "\"]\n");
    return;
  }
  write(out, "  dvi_", source->output.dvi, " -> dvi_", name.dvi, " [label=\"", port_label(port));
  if (source->mismatch != 0) {
    write(out, "\\ndiffers: ", flow.mismatches[source->mismatch],
          "\", color=red, fontcolor=red]\n");
  } else {
    write(out, "\"]\n");
  }
}

void write_outer_output(const morvane_view_port& port, const record_name& name, page_output& out) {
  write(out, "  outside_from_", name.dvi, "_", name.index, " [label=\"outside\", shape=plain]\n",
        "  dvi_", name.dvi, " -> outside_from_", name.dvi, "_", name.index, " [label=\"",
        port_label(port), "\"]\n");
}

}  // namespace

void write_dot(const opened_package& package, const network_flow& flow, page_output& out) {
  const morvane_view& view = package.view;
  write(out, "digraph package {\n  node [shape=box]\n");
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    write(out, "  dvi_", dvi.position, " [label=\"DVI ", dvi.position, "\\n",
          dot_text(str(dvi.dag_name)), "\"]\n");
  });
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    for_each_input(view, dvi, [&](const morvane_view_port& port, const record_name& name) {
      write_input(flow, port, name, out);
    });
    for_each_output(view, dvi, [&](const morvane_view_port& port, const record_name& name) {
      if (connections_from(flow, {name.dvi, name.index}).empty()) {
        write_outer_output(port, name, out);
      }
    });
    release_dvi(package, dvi);
  });
  write(out, "}\n");
}

}  // namespace morvane::cli

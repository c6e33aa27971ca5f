#include <algorithm>
#include <map>

#include "cli/package/package_walk.h"
#include "cli/report/model/package_changes.h"
#include "cli/report/sections/page_parts.h"
#include "cli/report/sections/sections.h"
#include "cli/report/sections/wiring.h"

namespace morvane::cli {

namespace {

/// Rows from top to bottom: of each DVI its head, its inputs, its outputs and the space below.
struct row_numbers {
  std::vector<std::uint32_t> heads{};
  std::vector<std::uint32_t> inputs{};  // how many there are
  std::uint32_t count = 0;
};

row_numbers number_rows(const morvane_view& view) {
  row_numbers rows;
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    rows.heads.push_back(rows.count);
    rows.inputs.push_back(dvi.input_num);
    rows.count += 2 + dvi.input_num + dvi.output_num;
  });
  return rows;
}

std::uint32_t input_row(const row_numbers& rows, port_place input) {
  return rows.heads[input.dvi] + 1 + input.index;
}

std::uint32_t output_row(const row_numbers& rows, port_place output) {
  return rows.heads[output.dvi] + 1 + rows.inputs[output.dvi] + output.index;
}

/// One wire for each output that feeds something.
std::vector<wire> wires_of(const network_flow& flow, const row_numbers& rows) {
  std::vector<wire> wires;
  const port_place* output = nullptr;
  for (const connection& one : flow.by_output) {
    if (output == nullptr || *output != one.output) {
      wires.push_back({.begin = output_row(rows, one.output)});
      output = &one.output;
    }
    wires.back().ends.push_back({input_row(rows, one.input), one.mismatch != 0});
  }
  return wires;
}

/// A picture that is being written.
struct port_rows {
  const page_content& content;
  page_output& out;
  wiring plan;
  std::uint32_t row = 0;  // the next one
  record_marks marks{};   // of the DVI
};

void begin_row(port_rows& rows, std::string_view kind, const outside_ports& outside) {
  write(rows.out, "<div class=\"", kind, "\">");
  append_wires(rows.out.pending, rows.plan, rows.row, outside);
  ++rows.row;
}

void write_head(port_rows& rows, const morvane_view_dvi& dvi) {
  begin_row(rows, "row head", {});
  write(rows.out, "<div>", pictured_dvi(rows.content.changes, dvi), " <span class=\"dim\">image ",
        rounded_size(dvi.dvi_img_size), " at ", hexadecimal(dvi.dvi_img_vaddr),
        "</span></div></div>\n");
}

void write_port(port_rows& rows, object_kind kind, const morvane_view_port& port) {
  const std::string_view direction = kind == object_kind::input ? "in" : "out";
  const std::string_view name = str(port.port_name);
  write(rows.out, "<div><i class=\"", direction, "\">", direction, "</i> ", pictured_name(name),
        label_of(next_mark(rows.marks, kind, name)), " <span class=\"dims\">", port_dims(port),
        " <small>format ", port.dram_format, "</small></span> <span class=\"flow\">");
}

void write_input(port_rows& rows, const morvane_view_port& port, port_place place) {
  const connection* const source = connection_to(rows.content.flow, place);
  begin_row(rows, "row port", {.has_inputs = source == nullptr});
  write_port(rows, object_kind::input, port);
  write(rows.out, source == nullptr ? std::string(origin_of(rows.content.flow, place))
                                    : joined("from ", dvi_link(source->output.dvi)));
  if (source != nullptr && source->mismatch != 0) {
    write(rows.out, " <b class=\"bad\">differs: ", rows.content.flow.mismatches[source->mismatch],
          "</b>");
  }
  write(rows.out, "</span></div></div>\n");
}

void write_output(port_rows& rows, const morvane_view_port& port, port_place place) {
  const auto fed = connections_from(rows.content.flow, place);
  begin_row(rows, "row port", {.has_outputs = fed.empty()});
  write_port(rows, object_kind::output, port);
  write(rows.out, "to ",
        fed.empty() ? std::string(destination_of(rows.content.flow))
                    : listed(fed, fed.size(), fed_dvi_link),
        "</span></div></div>\n");
}

}  // namespace

void write_port_rows(const page_content& content, page_output& out) {
  const morvane_view& view = content.package.view;
  const row_numbers numbers = number_rows(view);
  port_rows rows{content, out, lay_wires(wires_of(content.flow, numbers), numbers.count)};
  write(out, "<ol class=\"net ", width_class(rows.plan), "\">\n");
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    write(out, "<li>");
    rows.marks = marks_of(content.changes, dvi.position);
    write_head(rows, dvi);
    for_each_input(view, dvi, [&](const morvane_view_port& port, const record_name& name) {
      write_input(rows, port, {name.dvi, name.index});
    });
    for_each_output(view, dvi, [&](const morvane_view_port& port, const record_name& name) {
      write_output(rows, port, {name.dvi, name.index});
    });
    begin_row(rows, "row space", {});
    write(out, "</div></li>\n");
  });
  write(out, "</ol>\n");
}

}  // namespace morvane::cli

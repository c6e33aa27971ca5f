#include "cli/output/printable_text.h"
#include "cli/package/named_dvis.h"
#include "cli/package/record_fields.h"
#include "cli/show/show_formats.h"

namespace morvane::cli {

namespace {

/// A value as a cell of its row.
struct csv_cell {
  std::string operator()(std::int64_t number) const { return joined(number); }
  std::string operator()(number_pair numbers) const { return joined(numbers[0], " ", numbers[1]); }

  std::string operator()(std::string_view text) const {
    std::string cell = printable(text);
    if (cell.find_first_of(",\"") == std::string::npos) {
      return cell;
    }
    for (std::size_t at = cell.find('"'); at != std::string::npos; at = cell.find('"', at + 2)) {
      cell.insert(at, 1, '"');
    }
    return joined("\"", cell, "\"");
  }
};

std::string head_row() {
  std::string row = "dvi,dag_name,port,index,offset";
  for (const auto& field : port_fields) {
    append_pieces(row, ",", field.name);
  }
  return row += '\n';
}

std::string port_row(const morvane_view_dvi& dvi, const morvane_view_port& port,
                     const record_name& name) {
  const csv_cell cell;
  std::string row = joined(dvi.position, ",", cell(str(dvi.dag_name)), ",", name_of(name.kind), ",",
                           name.index, ",", port.offset);
  for (const auto& field : port_fields) {
    append_pieces(row, ",", std::visit(cell, field.value(port)));
  }
  return row += '\n';
}

}  // namespace

void show_csv(const opened_package& package, const show_options& options, console& streams) {
  print_result(streams, head_row());
  for_each_named_dvi(package.view, options.dag_names, [&](const morvane_view_dvi& dvi) {
    for_each_port(package.view, dvi, [&](const morvane_view_port& port, const record_name& name) {
      print_result(streams, port_row(dvi, port, name));
    });
    show_progress(streams.progress, release_dvi(package, dvi));
  });
}

}  // namespace morvane::cli

#include "cli/output/printable_text.h"
#include "cli/output/text_table.h"
#include "cli/package/digest.h"
#include "cli/package/named_dvis.h"
#include "cli/package/package_walk.h"
#include "cli/show/show_formats.h"
#include "format/build_constants.h"

namespace morvane::cli {

namespace {

constexpr std::string_view dvi_indent = "  ";

/// Of the column "data".
constexpr std::string_view data_legend =
    "\ndata: sign, data size, exponent offset, exponent bits; - when not given\n";

std::string package_line(const opened_package& package) {
  if (!has_header(package)) {
    return joined(printable(package.path), ": ", count_of(package.view.size, "byte"), "\n");
  }
  const bool is_whole = !is_damaged(package);
  const std::string_view vproc = package.view.vproc_table != 0 ? ", with vproc records"
                                 : is_whole                    ? ", without vproc records"
                                                               : "";
  return joined(printable(package.path), ": ", count_of(package.view.size, "byte"), ", ",
                version_text(package.view.version, package.view.HASH), ", dvi_num ",
                package.view.dvi_num, vproc, "\n");
}

std::string dvi_lines(const opened_package& package, const morvane_view_dvi& dvi,
                      bool with_digests) {
  const auto image = image_of(package.view, dvi);
  std::string text =
      joined("\n", str(record_name{.dvi = dvi.position}), ": ", printable(str(dvi.dag_name)), "\n",
             dvi_indent, "dvi_id ", dvi.dvi_id, ", vproc_id ", dvi.vproc_id, ", dvi_ppv ",
             dvi.dvi_ppv, "\n", dvi_indent, "image: offset ",
             hexadecimal(static_cast<std::uint64_t>(image.data() - package.view.bytes)), ", ",
             count_of(image.size(), "byte"), ", address ", hexadecimal(dvi.dvi_img_vaddr),
             ", DAG binary at ", hexadecimal(dvi.dvi_dag_vaddr), "\n");
  if (with_digests) {
    append_pieces(text, dvi_indent, "xxh3_128: ", xxh3_128(package.bytes, image), "\n");
  }
  return text;
}

std::string port_table(const morvane_view& view, const morvane_view_dvi& dvi) {
  text_table table{.is_number = {false, false, true, true, true, true, true, false, true, true}};
  add_row(table, "port", "name", "P", "D", "H", "W", "format", "data", "size", "offset");
  for_each_port(view, dvi, [&](const morvane_view_port& port, const record_name& name) {
    add_row(table, name_in_dvi(name), printable(str(port.port_name)), port.P, port.D, port.H,
            port.W, port.dram_format, data_format(port), port.port_size, port.port_byte_offset);
  });
  return str(table, dvi_indent);
}

std::string variable_table(const morvane_view& view, const morvane_view_dvi& dvi) {
  text_table table{.is_number = {false, false, true, true}};
  add_row(table, "variable", "name", "bit offset", "bits");
  for_each_variable(view, dvi, [&](const morvane_view_var& variable, const record_name& name) {
    add_row(table, name.index, printable(str(variable.var)), variable.boffset, variable.bsize);
  });
  return str(table, dvi_indent);
}

std::string smb_table(const morvane_view& view, const morvane_view_dvi& dvi) {
  text_table table{.is_number = {false, false, true}};
  add_row(table, "SMB", "name", "offset");
  for_each_smb(view, dvi, [&](const morvane_view_smb_block& smb, const record_name& name) {
    add_row(table, name.index, printable(str(smb.smb_name)), smb.vbase_byte_offset);
  });
  return str(table, dvi_indent);
}

}  // namespace

void show_tables(const opened_package& package, const show_options& options, console& streams) {
  bool has_ports = false;
  print_result(streams, package_line(package));
  for_each_named_dvi(package.view, options.dag_names, [&](const morvane_view_dvi& dvi) {
    print_result(streams, dvi_lines(package, dvi, options.digest));
    if (dvi.input_num != 0 || dvi.output_num != 0) {
      print_result(streams, port_table(package.view, dvi));
      has_ports = true;
    }
    if (dvi.variable_num != 0) {
      print_result(streams, variable_table(package.view, dvi));
    }
    if (dvi.smb_num != 0) {
      print_result(streams, smb_table(package.view, dvi));
    }
    show_progress(streams.progress, release_dvi(package, dvi));
  });
  if (has_ports) {
    print_result(streams, data_legend);
  }
}

}  // namespace morvane::cli

#include "inspect/inspect_package.h"

#include <cstdint>

#include "inspect/header_writer.h"
#include "inspect/package_reader.h"
#include "inspect/parse_folder.h"
#include "inspect/report.h"
#include "io/message.h"

namespace morvane {

namespace {

/// The state of an inspection: the package, the output folder and the DVI table.
struct inspection {
  package_reader package;
  parse_folder folder;
  claimed_list<dvi_desc> dvis{};
  bool images_saved = true;
};

/// Returns whether the package has a complete header. If not, all words of the header are 0.
bool read_pkg_header(package_reader& package, pkg_header& header) {
  const bool whole = read_package(package, bytes_of(header)) == sizeof header;
  if (!whole) {
    header = {};
  }
  return whole;
}

void inspect_dvi_table(inspection& run, std::uint32_t dvi_num) {
  run.dvis = read_records<dvi_desc>(run.package, dvi_num);
  remove_headers(run.folder, run.dvis);
  print_line();
  for (std::size_t i = 0; i < run.dvis.count; ++i) {
    print_dvi_description(run.dvis[i]);
  }
  write_dag_blocks(run.folder, run.dvis);
  print_line();
}

void extract_image(inspection& run, const dvi_desc& dvi) {
  const std::size_t size = checked_count(run.package, dvi.dvi_img_size, 1);
  const file_handle image = create_image(run.folder, text_of(dvi.dag_name));
  run.images_saved = run.images_saved && image.is_open();
  extract_bytes(run.package, image, size);
}

void inspect_dvi_block(inspection& run, const dvi_desc& dvi) {
  const auto inputs = read_records<port_desc>(run.package, dvi.input_num);
  const auto outputs = read_records<port_desc>(run.package, dvi.output_num);
  print_dvi_heading(dvi);
  print_port_descriptions(inputs, input_ports);
  print_port_descriptions(outputs, output_ports);
  write_port_blocks(run.folder, dvi, inputs, input_ports);
  write_port_blocks(run.folder, dvi, outputs, output_ports);
  print_line();
  extract_image(run, dvi);
}

void inspect_vproc_block(inspection& run, const vproc_desc& vproc, const dvi_desc& dvi) {
  const auto variables = read_records<var_desc>(run.package, vproc.variable_num);
  const auto smbs = read_records<smb_desc>(run.package, vproc.smb_num);
  print_vproc_heading(dvi, vproc);
  print_variables(variables);
  write_variable_blocks(run.folder, dvi, variables);
  print_line();
  print_smbs(smbs);
  write_smb_blocks(run.folder, dvi, smbs);
  print_line();
}

/// A package does not say whether it has a vproc section. Four bytes after the last image are taken
/// as its begin.
void inspect_vproc_section(inspection& run) {
  if (!holds_more(run.package, sizeof(std::uint32_t))) {
    return;
  }
  const auto vprocs =
      read_records<vproc_desc>(run.package, static_cast<std::uint32_t>(run.dvis.count));
  for (std::size_t i = 0; i < vprocs.count; ++i) {
    inspect_vproc_block(run, vprocs[i], run.dvis[i]);
  }
}

}  // namespace

int inspect_package(const std::string& path, const std::string& parsedir, bool vproc) {
  package_reader package = open_package(path);
  if (!package.file.is_open()) {
    return report_open_failure(path);
  }
  parse_folder folder = make_parse_folder(parsedir, package.identity);
  inspection run{.package = std::move(package), .folder = std::move(folder)};
  pkg_header header{};
  const bool header_read = read_pkg_header(run.package, header);
  print_pkg_header(header);
  inspect_dvi_table(run, header.dvi_num);
  for (std::size_t i = 0; i < run.dvis.count; ++i) {
    inspect_dvi_block(run, run.dvis[i]);
  }
  if (vproc) {
    inspect_vproc_section(run);
  }
  if (!header_read) {
    print_line("error: fail to parse file ", path);
  }
  print_line(run.images_saved ? ".dvi files are parsed to folder "
                              : "error: fail to save parsed .dvi files to folder ",
             run.folder.path);
  print_line();
  return 0;
}

}  // namespace morvane

#include "driver/pack_sections.h"

#include <utility>

#include "discovery/input_files.h"
#include "format/build_constants.h"
#include "format/file_naming.h"
#include "headers/dag_descriptions.h"
#include "headers/port_descriptions.h"
#include "headers/vproc_descriptions.h"
#include "headers/vproc_variables.h"
#include "io/message.h"

namespace morvane {

namespace {

/// The size of a list in bytes, in 32 bits as the run adds it up.
template <class Record>
std::uint32_t declared_size(const std::vector<Record>& records) {
  return static_cast<std::uint32_t>(sizeof(Record) * records.size());
}

template <class Record, class... Pieces>
void append_records_or_warn(package_writer& package, const std::vector<Record>& records,
                            const Pieces&... missing) {
  if (records.empty()) {
    print_line("warning: fail to find ", missing...);
  } else {
    append_records(package, records);
  }
}

int append_ports(package_writer& package, const std::string& header_path, const dvi_desc& dvi) {
  const std::string header = read_file(header_path).text;
  std::vector<port_desc> inputs;
  std::vector<port_desc> outputs;
  inputs.reserve(dvi.input_num);
  outputs.reserve(dvi.output_num);
  if (parse_port_descriptions(inputs, header, input_ports) != 0 ||
      parse_port_descriptions(outputs, header, output_ports) != 0) {
    return -1;
  }
  for (const auto& [ports, kind] : {std::pair{&inputs, &input_ports}, {&outputs, &output_ports}}) {
    append_records_or_warn(package, *ports, "HMB ", kind->direction, " info in ", header_path);
  }
  return 0;
}

/// Appends the block of every DVI and adds its size to the running size.
int append_dvi_blocks(package_writer& package, const pack_inputs& inputs,
                      const std::vector<dvi_desc>& dvis, std::uint32_t& size) {
  for (std::size_t i = 0; i < inputs.dvis.size(); ++i) {
    const std::string header_path = join_path(inputs.folder, inputs.headers[i].name);
    const std::string image_path = join_path(inputs.folder, inputs.dvis[i].name);
    if (append_ports(package, header_path, dvis[i]) != 0 ||
        read_file_bytes(package, image_path, static_cast<std::int32_t>(dvis[i].dvi_img_size)) !=
            0) {
      return -1;
    }
    size += dvis[i].dvi_pkg_size;
  }
  return 0;
}

/// Appends the vproc table and every vproc block, and adds their sizes to the running size.
int append_vproc_section(package_writer& package, const pack_inputs& inputs, std::uint32_t& size) {
  std::vector<vproc_desc> vprocs;
  parse_vproc_description(vprocs, inputs.folder, inputs.headers);
  append_records_or_warn(package, vprocs, "vproc descriptions in ", inputs.folder);
  size += declared_size(vprocs);
  for (std::size_t i = 0; i < inputs.headers.size(); ++i) {
    const std::string header_path = join_path(inputs.folder, inputs.headers[i].name);
    const std::string header = read_file(header_path).text;
    std::vector<var_desc> variables;
    std::vector<smb_desc> smbs;
    if (parse_vproc_variables(variables, header) != 0 ||
        parse_smb_descriptions(smbs, header) != 0) {
      return -1;
    }
    append_records_or_warn(package, variables, "vproc self-defined variables in ", header_path);
    append_records(package, smbs);
    size += vprocs[i].vproc_records_size;
  }
  return 0;
}

}  // namespace

int find_inputs(pack_inputs& inputs, bool vproc) {
  const std::int32_t dvi_count = list_input_files(inputs.folder, dvi_type, inputs.dvis);
  const std::int32_t header_count = pair_header_files(inputs.folder, inputs.dvis, inputs.headers);
  if (vproc && check_duplicate_dag_names(inputs.folder, inputs.headers) != 0) {
    return -1;
  }
  if (dvi_count != header_count) {
    print_line("error: number of DVI files doesn't match that of Header files.");
    return -1;
  }
  if (dvi_count == 0) {
    print_line("error: can't find matched .dvi files and .h files");
    return -1;
  }
  return 0;
}

pkg_header header_of(std::size_t dvi_count) {
  return {.version = version_word,
          .HASH = revision_hash(),
          .dvi_num = static_cast<std::uint32_t>(dvi_count)};
}

int append_sections(package_writer& package, const pack_inputs& inputs, bool vproc,
                    std::uint32_t& size) {
  append_records(package, std::vector{header_of(inputs.dvis.size())});
  std::vector<dvi_desc> dvis;
  const int status = parse_dag_descriptions(dvis, inputs.folder, inputs.headers);
  append_records_or_warn(package, dvis, "DVI descriptions in ", inputs.folder);
  if (status != 0) {
    return -1;
  }
  size = static_cast<std::uint32_t>(sizeof(pkg_header)) + declared_size(dvis);
  if (append_dvi_blocks(package, inputs, dvis, size) != 0) {
    return -1;
  }
  return vproc ? append_vproc_section(package, inputs, size) : 0;
}

bool is_input(const file_identity& file, const pack_inputs& inputs) {
  for (const input_list* files : {&inputs.dvis, &inputs.headers}) {
    for (const input_entry entry : *files) {
      if (identity_at(join_path(inputs.folder, entry.name)) == file) {
        return true;
      }
    }
  }
  return false;
}

}  // namespace morvane

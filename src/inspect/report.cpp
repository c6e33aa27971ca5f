#include "inspect/report.h"

#include <string_view>

#include "format/build_constants.h"
#include "io/message.h"

namespace morvane {

namespace {

// Labels that appear in more than one kind of line.
constexpr std::string_view dvi_id_label = "dvi_id: ";
constexpr std::string_view dag_name_label = " dag_name: ";
constexpr std::string_view input_num_label = " input_num: ";
constexpr std::string_view output_num_label = " output_num: ";
constexpr std::string_view vproc_id_label = "vproc_id: ";

int bit(const port_desc& port, unsigned mask) {
  return (port.flags & mask) != 0 ? 1 : 0;
}

void print_port(const port_desc& port, std::size_t id, const port_class& ports_class) {
  std::string layer;
  if (const std::string_view layer_name = text_of(port.layer_name); !layer_name.empty()) {
    append_pieces(layer, "(layer_name: ", layer_name, ")");
  }
  // clang-format off
  print_line(
      ports_class.direction, "_id: ", id,
      "\t port_size: ", port.port_size,
      "\t port_byte_offset: ", port.port_byte_offset,
      "\t bitvector: ", bit(port, MORVANE_PORT_BITVECTOR),
      "\t dim: (P, D, H, W) = ( ", port.P, ", ", port.D, ", ", port.H, ", ", port.W, ")",
      "\tpitch: ", port.pitch,
      "\tdram_format: ", port.dram_format,
      "\tdata_format: (", port.sign, ", ", port.datasize, ", ", port.expoffset, ", ", port.expbits, ")",
      "\tport rotate bit (p, d, v, h, r): (",
          bit(port, MORVANE_PORT_PFLIP), ", ", bit(port, MORVANE_PORT_DFLIP), ", ",
          bit(port, MORVANE_PORT_VFLIP), ", ", bit(port, MORVANE_PORT_HFLIP), ", ",
          bit(port, MORVANE_PORT_DROTATE), ")",
      "\tport rotate offset(p, d, v, h, r): (",
          port.pflip_bit_offset, ", ", port.dflip_bit_offset, ", ",
          port.vflip_bit_offset, ", ", port.hflip_bit_offset, ", ",
          port.drotate_bit_offset, ")",
      "\tport_name: ", text_of(port.port_name),
      "\t", layer);
  // clang-format on
}

}  // namespace

void print_pkg_header(const pkg_header& header) {
  print_line(version_text(header.version, header.HASH), " dvi_num: ", header.dvi_num);
}

void print_dvi_description(const dvi_desc& dvi) {
  // clang-format off
  print_line(
      dvi_id_label, dvi.dvi_id,
      "\t dvi_img_vaddr: ", dvi.dvi_img_vaddr,
      "\t dvi_img_size: ", dvi.dvi_img_size,
      "\t dvi_dag_vaddr: ", dvi.dvi_dag_vaddr,
      "\t", input_num_label, dvi.input_num,
      "\t", output_num_label, dvi.output_num,
      "\t dvi_pkg_size: ", dvi.dvi_pkg_size,
      "\t dvi_ppv: ", dvi.dvi_ppv,
      "\t ", vproc_id_label, dvi.vproc_id,
      "\t", dag_name_label, text_of(dvi.dag_name));
  // clang-format on
}

void print_dvi_heading(const dvi_desc& dvi) {
  print_line(dvi_id_label, dvi.dvi_id, dag_name_label, text_of(dvi.dag_name), input_num_label,
             dvi.input_num, output_num_label, dvi.output_num);
}

void print_port_descriptions(const claimed_list<port_desc>& ports, const port_class& ports_class) {
  for (std::size_t id = 0; id < ports.count; ++id) {
    print_port(ports[id], id, ports_class);
  }
}

void print_vproc_heading(const dvi_desc& dvi, const vproc_desc& vproc) {
  print_line(vproc_id_label, dvi.vproc_id, dag_name_label, text_of(dvi.dag_name),
             " variable_num: ", vproc.variable_num, " smb_num: ", vproc.smb_num);
  print_line();
}

void print_variables(const claimed_list<var_desc>& variables) {
  for (std::size_t i = 0; i < variables.count; ++i) {
    const var_desc& variable = variables[i];
    print_line("var: ", text_of(variable.var), "\t boffset = ", variable.boffset,
               "\t bsize = ", variable.bsize);
  }
}

void print_smbs(const claimed_list<smb_desc>& smbs) {
  for (std::size_t id = 0; id < smbs.count; ++id) {
    const smb_desc& smb = smbs[id];
    print_line("smb_id: ", id, "\t vbase_byte_offset: ", smb.vbase_byte_offset,
               "\t smb_name: ", text_of(smb.smb_name));
  }
}

}  // namespace morvane

#include "harness/packages.h"

#include <algorithm>

namespace morvane::test {

void put_text(std::span<char> field, std::string_view text) {
  std::ranges::copy(text.substr(0, field.size()), field.begin());
}

std::string header(std::uint32_t dvi_num) {
  return bytes(pkg_header{.version = 0x02010006, .HASH = 0x0B3B3814, .dvi_num = dvi_num});
}

dvi_desc dvi(std::string_view dag_name, std::uint32_t img_size, std::uint32_t input_num,
             std::uint32_t output_num) {
  dvi_desc record{};
  record.dvi_img_vaddr = 4096;
  record.dvi_img_size = img_size;
  record.dvi_dag_vaddr = 8192;
  record.input_num = input_num;
  record.output_num = output_num;
  record.dvi_pkg_size = img_size + 1080 * (input_num + output_num);
  put_text(record.dag_name, dag_name);
  return record;
}

port_desc port(std::string_view port_name, std::string_view layer_name) {
  port_desc record{};
  record.W = 16;
  record.flags = MORVANE_PORT_HFLIP;
  record.expoffset = -3;
  put_text(record.port_name, port_name);
  put_text(record.layer_name, layer_name);
  return record;
}

var_desc variable(std::string_view name) {
  var_desc record{.var = {}, .boffset = 8, .bsize = 16};
  put_text(record.var, name);
  return record;
}

smb_desc smb(std::string_view name) {
  smb_desc record{.smb_name = {}, .vbase_byte_offset = 256};
  put_text(record.smb_name, name);
  return record;
}

port_desc varied_port(std::string_view port_name, std::string_view layer_name) {
  port_desc varied = port(port_name, layer_name);
  varied.P = 1;
  varied.D = 2;
  varied.H = 3;
  varied.W = 4;
  varied.pitch = 5;
  varied.dram_format = 6;
  varied.drotate_bit_offset = 8;
  varied.hflip_bit_offset = 9;
  varied.vflip_bit_offset = 10;
  varied.dflip_bit_offset = 11;
  varied.pflip_bit_offset = 12;
  varied.sign = 1;
  varied.datasize = 16;
  varied.expoffset = -15;
  varied.expbits = 5;
  varied.port_size = 4294967295;
  varied.port_byte_offset = 13;
  return varied;
}

std::string sample_package() {
  constexpr vproc_desc one_of_each{
      .variable_num = 1, .smb_num = 1, .vproc_records_size = 136 + 132};
  return header(2) + bytes(dvi("net_split_0", 8, 1, 1)) + bytes(dvi("net_split_1", 4)) +
         bytes(port("data", "net/in")) + bytes(port("prob", "")) + "IMAGE 0\n" + "IMG1" +
         bytes(one_of_each) + bytes(vproc_desc{}) + bytes(variable("gain")) + bytes(smb("lut"));
}

dvi_desc sound_dvi(std::uint8_t position, std::string_view dag_name, std::uint32_t input_num,
                   std::uint32_t output_num) {
  dvi_desc record = dvi(dag_name, 64, input_num, output_num);
  record.dvi_id = position;
  record.vproc_id = position;
  record.dvi_img_vaddr = 0x1000U * (position + 1U);
  record.dvi_dag_vaddr = record.dvi_img_vaddr;
  return record;
}

std::string image() {
  return std::string(64, '\xA5');
}

port_desc sound_port(std::string_view port_name, std::uint32_t port_byte_offset) {
  port_desc record = port(port_name, "layer");
  record.port_size = 16;
  record.port_byte_offset = port_byte_offset;
  return record;
}

std::string sound_package() {
  return header(2) + bytes(sound_dvi(0, "first")) + bytes(sound_dvi(1, "second")) +
         bytes(sound_port("data", 0)) + bytes(sound_port("middle", 16)) + image() +
         bytes(sound_port("middle", 16)) + bytes(sound_port("prob", 32)) + image();
}

std::string sound_package_with_vproc() {
  return sound_package() + bytes(vproc_desc{1, 1, 268}) + bytes(vproc_desc{}) +
         bytes(variable("gain")) + bytes(smb("lut"));
}

}  // namespace morvane::test

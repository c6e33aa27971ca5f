#include "cli/sound_package.h"

namespace morvane::test {

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

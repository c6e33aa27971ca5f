#include "end_to_end/package_records.h"

namespace morvane::test {

namespace {

std::string byte(std::uint8_t value) {
  return std::string(1, static_cast<char>(value));
}

std::string text_field(std::string_view text, std::size_t width) {
  std::string field(text);
  field.resize(width, '\0');
  return field;
}

}  // namespace

std::string word(std::uint32_t value) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) {
    bytes += byte(static_cast<std::uint8_t>(value >> shift & 0xFF));
  }
  return bytes;
}

std::string package_header(std::uint32_t dvi_num) {
  return word(0x02010006) + word(0x0B3B3814) + word(dvi_num);
}

std::string dvi_record(const dvi_fields& fields) {
  return byte(fields.dvi_id) + byte(fields.vproc_id) + byte(fields.ppv) + byte(0) +
         word(fields.img_vaddr) + word(fields.img_size) + word(fields.dag_vaddr) +
         word(fields.input_num) + word(fields.output_num) + word(fields.pkg_size) +
         text_field(fields.dag_name, 128);
}

std::string port_record(const port_fields& fields) {
  return word(fields.P) + word(fields.D) + word(fields.H) + word(fields.W) + word(fields.pitch) +
         byte(fields.dram_format) + byte(fields.flags) + byte(0) + byte(0) +
         word(fields.drotate_bit_offset) + word(fields.hflip_bit_offset) +
         word(fields.vflip_bit_offset) + word(fields.dflip_bit_offset) +
         word(fields.pflip_bit_offset) + byte(fields.sign) + byte(fields.datasize) +
         byte(fields.expoffset) + byte(fields.expbits) + word(fields.port_size) +
         word(fields.port_byte_offset) + text_field(fields.port_name, 512) +
         text_field(fields.layer_name, 512);
}

std::string vproc_record(std::uint32_t variable_num, std::uint32_t smb_num, std::uint32_t size) {
  return word(variable_num) + word(smb_num) + word(size);
}

std::string variable_record(std::string_view name, std::uint32_t boffset, std::uint32_t bsize) {
  return text_field(name, 128) + word(boffset) + word(bsize);
}

std::string smb_record(std::string_view name, std::uint32_t vbase_byte_offset) {
  return text_field(name, 128) + word(vbase_byte_offset);
}

}  // namespace morvane::test

// Makes the records of a package byte by byte, without the definitions of the tool: the tests have
// their own description of a package.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace morvane::test {

/// 4 bytes, the lowest first.
std::string word(std::uint32_t value);

/// 12 bytes: version 2.1.6, hash b3b3814 and the number of DVIs.
std::string package_header(std::uint32_t dvi_num);

struct dvi_fields {
  std::uint8_t dvi_id = 0;
  std::uint8_t vproc_id = 0;
  std::uint8_t ppv = 0;
  std::uint32_t img_vaddr = 0;
  std::uint32_t img_size = 0;
  std::uint32_t dag_vaddr = 0;
  std::uint32_t input_num = 0;
  std::uint32_t output_num = 0;
  std::uint32_t pkg_size = 0;
  std::string_view dag_name{};
};

/// 156 bytes.
std::string dvi_record(const dvi_fields& fields);

/// A port without macros in the header.
struct port_fields {
  std::string_view port_name{};
  std::string_view layer_name{};
  std::uint32_t P = 0;
  std::uint32_t D = 0;
  std::uint32_t H = 0;
  std::uint32_t W = 0;
  std::uint32_t pitch = 0;
  std::uint8_t dram_format = 0;
  std::uint8_t flags = 0;
  std::uint32_t drotate_bit_offset = 0;
  std::uint32_t hflip_bit_offset = 0;
  std::uint32_t vflip_bit_offset = 0;
  std::uint32_t dflip_bit_offset = 0;
  std::uint32_t pflip_bit_offset = 0;
  std::uint8_t sign = 0xFF;
  std::uint8_t datasize = 0xFF;
  std::uint8_t expoffset = 0xFF;
  std::uint8_t expbits = 0xFF;
  std::uint32_t port_size = 0;
  std::uint32_t port_byte_offset = 0;
};

/// 1080 bytes.
std::string port_record(const port_fields& fields);

/// 12 bytes.
std::string vproc_record(std::uint32_t variable_num, std::uint32_t smb_num, std::uint32_t size);

/// The vproc record of a header that describes no variable and no SMB.
inline const std::string no_vproc = vproc_record(0, 0, 0);

/// 136 bytes.
std::string variable_record(std::string_view name, std::uint32_t boffset, std::uint32_t bsize);

/// 132 bytes.
std::string smb_record(std::string_view name, std::uint32_t vbase_byte_offset);

}  // namespace morvane::test

// Packages for the tests, made from records.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "format/records.h"

namespace morvane::test {

/// The bytes of a record.
template <class Record>
std::string bytes(const Record& record) {
  return {reinterpret_cast<const char*>(&record), sizeof record};
}

/// Puts a text into a field; without a NUL if it is as long as the field.
void put_text(std::span<char> field, std::string_view text);

/// The header of a package with this number of DVIs.
std::string header(std::uint32_t dvi_num);

/// A DVI's description.
dvi_desc dvi(std::string_view dag_name, std::uint32_t img_size, std::uint32_t input_num = 0,
             std::uint32_t output_num = 0);

port_desc port(std::string_view port_name, std::string_view layer_name);

/// A port with a value of its own in every field, except the flags.
port_desc varied_port(std::string_view port_name, std::string_view layer_name);

var_desc variable(std::string_view name);
smb_desc smb(std::string_view name);

/// The sample of the damage tests, with a vproc section. One of its two DVIs has an input port, an
/// output port, a variable and an SMB. The other has none of these.
std::string sample_package();

/// A DVI whose image is 64 bytes at an address of its own, with the DAG binary at its begin. The
/// position is also its vproc_id.
dvi_desc sound_dvi(std::uint8_t position, std::string_view dag_name, std::uint32_t input_num = 1,
                   std::uint32_t output_num = 1);

/// The image of such a DVI.
std::string image();

/// A port of 16 bytes at an offset.
port_desc sound_port(std::string_view port_name, std::uint32_t port_byte_offset);

/// A package without a finding, to be damaged by the tests. Two DVIs, "first" and "second", that
/// pass "middle" on, without vproc records: 12 + 2 * 156 + 2 * (2 * 1080 + 64) bytes. DVI 0 begins
/// at 0xc, DVI 1 at 0xa8, the ports at 0x144 and 0x57c, and at 0x9f4 and 0xe2c.
std::string sound_package();

/// The same with a variable "gain" and an SMB block "lut" of DVI 0. The vproc table begins at
/// 0x12a4, the variable at 0x12bc, the SMB block at 0x1344.
std::string sound_package_with_vproc();

}  // namespace morvane::test

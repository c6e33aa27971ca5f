// A package without a finding, to be damaged by the tests.
#pragma once

#include <string>

#include "trust/sample_package.h"

namespace morvane::test {

/// A DVI whose image is 64 bytes at an address of its own, with the DAG binary at its begin. The
/// position is also its vproc_id.
dvi_desc sound_dvi(std::uint8_t position, std::string_view dag_name, std::uint32_t input_num = 1,
                   std::uint32_t output_num = 1);

/// The image of such a DVI.
std::string image();

/// A port of 16 bytes at an offset.
port_desc sound_port(std::string_view port_name, std::uint32_t port_byte_offset);

/// Two DVIs, "first" and "second", that pass "middle" on, without vproc records: 12 + 2 * 156 +
/// 2 * (2 * 1080 + 64) bytes. DVI 0 begins at 0xc, DVI 1 at 0xa8, the ports at 0x144 and 0x57c, and
/// at 0x9f4 and 0xe2c.
std::string sound_package();

/// The same with a variable "gain" and an SMB block "lut" of DVI 0. The vproc table begins at
/// 0x12a4, the variable at 0x12bc, the SMB block at 0x1344.
std::string sound_package_with_vproc();

}  // namespace morvane::test

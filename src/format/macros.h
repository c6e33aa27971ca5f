// The macros of the compiler's headers: keywords, and the field that each macro fills. The header
// parsers and the header regeneration both use these tables.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "format/records.h"

namespace morvane {

/// Names a DAG: "#define net_DAG_NAME net".
inline constexpr std::string_view dag_name_macro = "_DAG_NAME";

/// A line with this keyword and a name introduces an SMB.
inline constexpr std::string_view smb_keyword = "SMB_input";

/// A line with this keyword and a name introduces a variable.
inline constexpr std::string_view variable_keyword = "$";

/// One of the two kinds of HMB ports. A line with its keyword and a name introduces a port.
struct port_class {
  std::string_view direction;
  std::string_view keyword;
};

inline constexpr port_class input_ports{"input", "HMB_input"};
inline constexpr port_class output_ports{"output", "HMB_output"};

enum class macro_kind {
  word,         // u32: the low 32 bits of the macro's number
  byte,         // u8: the low 8 bits
  signed_byte,  // s8: the low 8 bits
  bit,          // one bit of a byte: the lowest bit
  guarded_bit,  // the same, but ignored if SUFFIX + "_" has a value on the same line
  text,         // a layer name
};

/// One macro: NAME + suffix, and the field of the record that holds its value.
struct macro_row {
  std::string_view suffix;
  macro_kind kind;
  std::size_t offset;     // of the field in its record, in bytes
  unsigned line;          // its line in a regenerated block, from 1
  std::uint8_t mask = 0;  // of a bit, in the byte at the offset
};

/// The macros of a DAG. NAME is the DAG's name. Here and below, macros are tried in table order.
inline constexpr std::array<macro_row, 4> dag_macros{{
    {"_use_ping_pong_vmem", macro_kind::byte, offsetof(dvi_desc, dvi_ppv), 1},
    {"_image_start", macro_kind::word, offsetof(dvi_desc, dvi_img_vaddr), 2},
    {"_image_size", macro_kind::word, offsetof(dvi_desc, dvi_img_size), 3},
    {"_dagbin_start", macro_kind::word, offsetof(dvi_desc, dvi_dag_vaddr), 4},
}};

/// The macros of a port. NAME is the port's name.
inline constexpr std::array<macro_row, 24> port_macros{{
    {"_dbase_byte_offset", macro_kind::word, offsetof(port_desc, port_byte_offset), 3},
    {"_is_bitvector", macro_kind::bit, offsetof(port_desc, flags), 2, MORVANE_PORT_BITVECTOR},
    {"_W", macro_kind::word, offsetof(port_desc, W), 9},
    {"_H", macro_kind::word, offsetof(port_desc, H), 10},
    {"_D", macro_kind::word, offsetof(port_desc, D), 11},
    {"_P", macro_kind::word, offsetof(port_desc, P), 12},
    {"_dpitch_num_bytes", macro_kind::word, offsetof(port_desc, pitch), 13},
    {"_dram_format", macro_kind::byte, offsetof(port_desc, dram_format), 14},
    {"_dram_size_num_bytes", macro_kind::word, offsetof(port_desc, port_size), 15},
    {"_sign", macro_kind::byte, offsetof(port_desc, sign), 16},
    {"_datasize", macro_kind::byte, offsetof(port_desc, datasize), 17},
    {"_expoffset", macro_kind::signed_byte, offsetof(port_desc, expoffset), 18},
    {"_expbits", macro_kind::byte, offsetof(port_desc, expbits), 19},
    {"_drotate_bit_offset", macro_kind::word, offsetof(port_desc, drotate_bit_offset), 4},
    {"_hflip_bit_offset", macro_kind::word, offsetof(port_desc, hflip_bit_offset), 5},
    {"_vflip_bit_offset", macro_kind::word, offsetof(port_desc, vflip_bit_offset), 6},
    {"_dflip_bit_offset", macro_kind::word, offsetof(port_desc, dflip_bit_offset), 7},
    {"_pflip_bit_offset", macro_kind::word, offsetof(port_desc, pflip_bit_offset), 8},
    {"_drotate", macro_kind::guarded_bit, offsetof(port_desc, flags), 20, MORVANE_PORT_DROTATE},
    {"_hflip", macro_kind::guarded_bit, offsetof(port_desc, flags), 21, MORVANE_PORT_HFLIP},
    {"_vflip", macro_kind::guarded_bit, offsetof(port_desc, flags), 22, MORVANE_PORT_VFLIP},
    {"_dflip", macro_kind::guarded_bit, offsetof(port_desc, flags), 23, MORVANE_PORT_DFLIP},
    {"_pflip", macro_kind::guarded_bit, offsetof(port_desc, flags), 24, MORVANE_PORT_PFLIP},
    {"_qubrix_demangled_name", macro_kind::text, offsetof(port_desc, layer_name), 1},
}};

/// The macros of a variable. NAME is the variable's name.
inline constexpr std::array<macro_row, 2> variable_macros{{
    {"_boffset", macro_kind::word, offsetof(var_desc, boffset), 1},
    {"_bsize", macro_kind::word, offsetof(var_desc, bsize), 2},
}};

/// The macros of an SMB. NAME is the SMB's name.
inline constexpr std::array<macro_row, 1> smb_macros{{
    {"_vbase_byte_offset", macro_kind::word, offsetof(smb_desc, vbase_byte_offset), 1},
}};

/// Stores a macro's number in its field, cut to the width of the field. The row must not be a text.
void store_number(std::span<std::byte> record, const macro_row& row, long number);

/// Returns the number in a macro's field. The row must not be a text.
long load_number(std::span<const std::byte> record, const macro_row& row);

/// Returns the layer name in a macro's field. The row must be a text.
std::string_view load_text(std::span<const std::byte> record, const macro_row& row);

/// Stores a text in its field and fills the rest with NULs. The text must fit.
void store_text(std::span<std::byte> field, std::string_view text);

}  // namespace morvane

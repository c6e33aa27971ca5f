// The fields of the records of a package, by their names in package_format.h.
#pragma once

#include <morvane/package_view.h>

#include <array>
#include <concepts>
#include <cstdint>
#include <string_view>
#include <variant>

#include "cli/package/package_walk.h"

namespace morvane::cli {

/// A number, a text inside a package, yes or no, or two numbers.
using number_pair = std::array<std::uint32_t, 2>;
using field_value = std::variant<std::int64_t, std::string_view, bool, number_pair>;

template <class Record>
struct record_field {
  std::string_view name;
  field_value (*value)(const Record& record);
};

inline field_value value_of(const morvane_text& text) {
  return str(text);
}

inline field_value value_of(std::integral auto number) {
  return std::int64_t{number};
}

/// The value of a member of a record: what a row of the tables below reads.
template <class Record, auto member>
field_value read_member(const Record& record) {
  return value_of(record.*member);
}

using header_field = record_field<morvane_view>;
inline constexpr std::array header_fields{
    header_field{"version", read_member<morvane_view, &morvane_view::version>},
    header_field{"HASH", read_member<morvane_view, &morvane_view::HASH>},
    header_field{"dvi_num", read_member<morvane_view, &morvane_view::dvi_num>},
};

template <auto member>
constexpr auto dvi_member = read_member<morvane_view_dvi, member>;

using dvi_field = record_field<morvane_view_dvi>;
inline constexpr std::array dvi_fields{
    dvi_field{"dvi_id", dvi_member<&morvane_view_dvi::dvi_id>},
    dvi_field{"vproc_id", dvi_member<&morvane_view_dvi::vproc_id>},
    dvi_field{"dvi_ppv", dvi_member<&morvane_view_dvi::dvi_ppv>},
    dvi_field{"reserved", dvi_member<&morvane_view_dvi::reserved>},
    dvi_field{"dvi_img_vaddr", dvi_member<&morvane_view_dvi::dvi_img_vaddr>},
    dvi_field{"dvi_img_size", dvi_member<&morvane_view_dvi::dvi_img_size>},
    dvi_field{"dvi_dag_vaddr", dvi_member<&morvane_view_dvi::dvi_dag_vaddr>},
    dvi_field{"input_num", dvi_member<&morvane_view_dvi::input_num>},
    dvi_field{"output_num", dvi_member<&morvane_view_dvi::output_num>},
    dvi_field{"dvi_pkg_size", dvi_member<&morvane_view_dvi::dvi_pkg_size>},
    dvi_field{"dag_name", dvi_member<&morvane_view_dvi::dag_name>},
};

/// Those of the vproc_desc, of a DVI that has one.
inline constexpr std::array vproc_fields{
    dvi_field{"variable_num", dvi_member<&morvane_view_dvi::variable_num>},
    dvi_field{"smb_num", dvi_member<&morvane_view_dvi::smb_num>},
    dvi_field{"vproc_records_size", dvi_member<&morvane_view_dvi::vproc_records_size>},
};

template <auto member>
constexpr auto port_member = read_member<morvane_view_port, member>;

using port_field = record_field<morvane_view_port>;
inline constexpr std::array port_fields{
    port_field{"P", port_member<&morvane_view_port::P>},
    port_field{"D", port_member<&morvane_view_port::D>},
    port_field{"H", port_member<&morvane_view_port::H>},
    port_field{"W", port_member<&morvane_view_port::W>},
    port_field{"pitch", port_member<&morvane_view_port::pitch>},
    port_field{"dram_format", port_member<&morvane_view_port::dram_format>},
    port_field{"flags", port_member<&morvane_view_port::flags>},
    port_field{"reserved",
               [](const morvane_view_port& port) {
                 return field_value(number_pair{port.reserved[0], port.reserved[1]});
               }},
    port_field{"drotate_bit_offset", port_member<&morvane_view_port::drotate_bit_offset>},
    port_field{"hflip_bit_offset", port_member<&morvane_view_port::hflip_bit_offset>},
    port_field{"vflip_bit_offset", port_member<&morvane_view_port::vflip_bit_offset>},
    port_field{"dflip_bit_offset", port_member<&morvane_view_port::dflip_bit_offset>},
    port_field{"pflip_bit_offset", port_member<&morvane_view_port::pflip_bit_offset>},
    port_field{"sign", port_member<&morvane_view_port::sign>},
    port_field{"datasize", port_member<&morvane_view_port::datasize>},
    port_field{"expoffset", port_member<&morvane_view_port::expoffset>},
    port_field{"expbits", port_member<&morvane_view_port::expbits>},
    port_field{"port_size", port_member<&morvane_view_port::port_size>},
    port_field{"port_byte_offset", port_member<&morvane_view_port::port_byte_offset>},
    port_field{"port_name", port_member<&morvane_view_port::port_name>},
    port_field{"layer_name", port_member<&morvane_view_port::layer_name>},
};

using variable_field = record_field<morvane_view_var>;
inline constexpr std::array variable_fields{
    variable_field{"var", read_member<morvane_view_var, &morvane_view_var::var>},
    variable_field{"boffset", read_member<morvane_view_var, &morvane_view_var::boffset>},
    variable_field{"bsize", read_member<morvane_view_var, &morvane_view_var::bsize>},
};

using smb_field = record_field<morvane_view_smb_block>;
inline constexpr std::array smb_fields{
    smb_field{"smb_name", read_member<morvane_view_smb_block, &morvane_view_smb_block::smb_name>},
    smb_field{"vbase_byte_offset",
              read_member<morvane_view_smb_block, &morvane_view_smb_block::vbase_byte_offset>},
};

}  // namespace morvane::cli

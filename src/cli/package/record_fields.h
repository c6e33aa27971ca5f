// The fields of the records of a package, by their names in package_format.h.
#pragma once

#include <morvane/package_view.h>

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
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

/// The field of a member of a record.
template <auto member, class Record, class Value>
consteval record_field<Record> field_of(std::string_view name, Value Record::* /*member*/) {
  return {name, [](const Record& record) { return value_of(record.*member); }};
}
template <auto member>
consteval auto field(std::string_view name) {
  return field_of<member>(name, member);
}

inline constexpr std::array header_fields{
    field<&morvane_view::version>("version"),
    field<&morvane_view::HASH>("HASH"),
    field<&morvane_view::dvi_num>("dvi_num"),
};

using dvi_field = record_field<morvane_view_dvi>;
inline constexpr std::array dvi_fields{
    field<&morvane_view_dvi::dvi_id>("dvi_id"),
    field<&morvane_view_dvi::vproc_id>("vproc_id"),
    field<&morvane_view_dvi::dvi_ppv>("dvi_ppv"),
    field<&morvane_view_dvi::reserved>("reserved"),
    field<&morvane_view_dvi::dvi_img_vaddr>("dvi_img_vaddr"),
    field<&morvane_view_dvi::dvi_img_size>("dvi_img_size"),
    field<&morvane_view_dvi::dvi_dag_vaddr>("dvi_dag_vaddr"),
    field<&morvane_view_dvi::input_num>("input_num"),
    field<&morvane_view_dvi::output_num>("output_num"),
    field<&morvane_view_dvi::dvi_pkg_size>("dvi_pkg_size"),
    field<&morvane_view_dvi::dag_name>("dag_name"),
};

/// Those of the vproc_desc, of a DVI that has one.
inline constexpr std::array vproc_fields{
    field<&morvane_view_dvi::variable_num>("variable_num"),
    field<&morvane_view_dvi::smb_num>("smb_num"),
    field<&morvane_view_dvi::vproc_records_size>("vproc_records_size"),
};

using port_field = record_field<morvane_view_port>;
inline constexpr std::array port_fields{
    field<&morvane_view_port::P>("P"),
    field<&morvane_view_port::D>("D"),
    field<&morvane_view_port::H>("H"),
    field<&morvane_view_port::W>("W"),
    field<&morvane_view_port::pitch>("pitch"),
    field<&morvane_view_port::dram_format>("dram_format"),
    field<&morvane_view_port::flags>("flags"),
    port_field{"reserved",
               [](const morvane_view_port& port) {
                 return field_value(number_pair{port.reserved[0], port.reserved[1]});
               }},
    field<&morvane_view_port::drotate_bit_offset>("drotate_bit_offset"),
    field<&morvane_view_port::hflip_bit_offset>("hflip_bit_offset"),
    field<&morvane_view_port::vflip_bit_offset>("vflip_bit_offset"),
    field<&morvane_view_port::dflip_bit_offset>("dflip_bit_offset"),
    field<&morvane_view_port::pflip_bit_offset>("pflip_bit_offset"),
    field<&morvane_view_port::sign>("sign"),
    field<&morvane_view_port::datasize>("datasize"),
    field<&morvane_view_port::expoffset>("expoffset"),
    field<&morvane_view_port::expbits>("expbits"),
    field<&morvane_view_port::port_size>("port_size"),
    field<&morvane_view_port::port_byte_offset>("port_byte_offset"),
    field<&morvane_view_port::port_name>("port_name"),
    field<&morvane_view_port::layer_name>("layer_name"),
};

inline constexpr std::array variable_fields{
    field<&morvane_view_var::var>("var"),
    field<&morvane_view_var::boffset>("boffset"),
    field<&morvane_view_var::bsize>("bsize"),
};

inline constexpr std::array smb_fields{
    field<&morvane_view_smb_block::smb_name>("smb_name"),
    field<&morvane_view_smb_block::vbase_byte_offset>("vbase_byte_offset"),
};

/// The records of a kind in a DVI: how to read one, its size in bytes, its name and its fields.
template <class Record>
struct record_form {
  object_kind kind;
  record_reader<Record> read;
  std::size_t width;
  morvane_text Record::*name;
  std::span<const record_field<Record>> fields;
};

inline constexpr record_form<morvane_view_port> input_form{
    object_kind::input, morvane_view_input, sizeof(morvane_port_desc),
    &morvane_view_port::port_name, port_fields};
inline constexpr record_form<morvane_view_port> output_form{
    object_kind::output, morvane_view_output, sizeof(morvane_port_desc),
    &morvane_view_port::port_name, port_fields};
inline constexpr record_form<morvane_view_var> variable_form{
    object_kind::variable, morvane_view_variable, sizeof(morvane_var_desc), &morvane_view_var::var,
    variable_fields};
inline constexpr record_form<morvane_view_smb_block> smb_form{
    object_kind::smb, morvane_view_smb, sizeof(morvane_smb_desc), &morvane_view_smb_block::smb_name,
    smb_fields};

/// Calls a function with each record of a form in a DVI.
template <class Record, class Function>
void for_each_record(const morvane_view& view, const morvane_view_dvi& dvi,
                     const record_form<Record>& form, Function function) {
  for_each_record(view, dvi, form.kind, form.read,
                  [&](const Record& record, const record_name& /*name*/) { function(record); });
}

}  // namespace morvane::cli

// All DVIs of a package, and all ports of a DVI.
#pragma once

#include <morvane/package_view.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/package/object_kind.h"

namespace morvane::cli {

/// The text's characters. They lie in the package.
inline std::string_view str(const morvane_text& text) {
  return {text.bytes, text.length};
}

/// How messages name a record: "DVI 7", "input 2 of DVI 7"; with the names of the DAG and of the
/// record, if they are known and not empty: "DVI 7 (net_7)", "input mel of DVI 7 (net_7)".
struct record_name {
  std::uint32_t dvi = 0;
  object_kind kind = object_kind::dvi;
  std::uint32_t index = 0;  // none for the DVI itself
  std::string_view dag{};
  std::string_view own{};
};
std::string str(const record_name& name);

/// How its DVI calls it: "input 2".
std::string name_in_dvi(const record_name& name);

/// The names of the records of a DVI.
inline std::string_view own_name(const morvane_view_port& port) {
  return str(port.port_name);
}
inline std::string_view own_name(const morvane_view_var& variable) {
  return str(variable.var);
}
inline std::string_view own_name(const morvane_view_smb_block& smb) {
  return str(smb.smb_name);
}

/// The inputs and outputs of a DVI.
inline std::uint64_t port_count(const morvane_view_dvi& dvi) {
  return std::uint64_t{dvi.input_num} + dvi.output_num;
}

/// "0,8,-5,0": sign, datasize, expoffset and expbits, or "-" when the compiler gave none.
std::string data_format(const morvane_view_port& port);

/// The name of a DVI's port at a position of its inputs and outputs together.
record_name port_name_at(const morvane_view_dvi& dvi, std::uint32_t position);

/// Calls a function with each DVI that can be reached.
template <class Function>
void for_each_dvi(const morvane_view& view, Function function) {
  morvane_view_dvi dvi{};
  int status = morvane_view_first(&view, &dvi);
  while (status == MORVANE_VIEW_OK) {
    function(std::as_const(dvi));
    status = morvane_view_next(&view, &dvi);
  }
}

/// All of them.
std::vector<morvane_view_dvi> dvis_of(const morvane_view& view);

/// A function of the view that reads the record at an index.
template <class Record>
using record_reader = int (*)(const morvane_view*, const morvane_view_dvi*, std::uint32_t, Record*);

/// Calls a function with each record of a kind in a DVI, and how messages name it.
template <class Record, class Function>
void for_each_record(const morvane_view& view, const morvane_view_dvi& dvi, object_kind kind,
                     record_reader<Record> read, Function function) {
  Record record{};
  for (std::uint32_t i = 0; read(&view, &dvi, i, &record) == MORVANE_VIEW_OK; ++i) {
    function(std::as_const(record), record_name{.dvi = dvi.position,
                                                .kind = kind,
                                                .index = i,
                                                .dag = str(dvi.dag_name),
                                                .own = own_name(record)});
  }
}

/// Each input port.
template <class Function>
void for_each_input(const morvane_view& view, const morvane_view_dvi& dvi, Function function) {
  for_each_record(view, dvi, object_kind::input, morvane_view_input, function);
}

/// Each output port.
template <class Function>
void for_each_output(const morvane_view& view, const morvane_view_dvi& dvi, Function function) {
  for_each_record(view, dvi, object_kind::output, morvane_view_output, function);
}

/// Each port, inputs first.
template <class Function>
void for_each_port(const morvane_view& view, const morvane_view_dvi& dvi, Function function) {
  for_each_input(view, dvi, function);
  for_each_output(view, dvi, function);
}

/// Each variable.
template <class Function>
void for_each_variable(const morvane_view& view, const morvane_view_dvi& dvi, Function function) {
  for_each_record(view, dvi, object_kind::variable, morvane_view_variable, function);
}

/// Each SMB block.
template <class Function>
void for_each_smb(const morvane_view& view, const morvane_view_dvi& dvi, Function function) {
  for_each_record(view, dvi, object_kind::smb, morvane_view_smb, function);
}

}  // namespace morvane::cli

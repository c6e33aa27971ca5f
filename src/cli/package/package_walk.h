// All DVIs of a package, and all ports of a DVI.
#pragma once

#include <morvane/package_view.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "cli/package/object_kind.h"

namespace morvane::cli {

/// The text's characters. They lie in the package.
inline std::string_view str(const morvane_text& text) {
  return {text.bytes, text.length};
}

/// How messages name a record: "DVI 7", "input 2 of DVI 7".
struct record_name {
  std::uint32_t dvi = 0;
  object_kind kind = object_kind::dvi;
  std::uint32_t index = 0;  // none for the DVI itself
};
std::string str(const record_name& name);

/// The inputs and outputs of a DVI.
inline std::uint64_t port_count(const morvane_view_dvi& dvi) {
  return std::uint64_t{dvi.input_num} + dvi.output_num;
}

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

/// Calls a function with each input port of a DVI, and how messages name it; so below.
template <class Function>
void for_each_input(const morvane_view& view, const morvane_view_dvi& dvi, Function function) {
  morvane_view_port port{};
  for (std::uint32_t i = 0; morvane_view_input(&view, &dvi, i, &port) == MORVANE_VIEW_OK; ++i) {
    function(std::as_const(port),
             record_name{.dvi = dvi.position, .kind = object_kind::input, .index = i});
  }
}

/// Each output port.
template <class Function>
void for_each_output(const morvane_view& view, const morvane_view_dvi& dvi, Function function) {
  morvane_view_port port{};
  for (std::uint32_t i = 0; morvane_view_output(&view, &dvi, i, &port) == MORVANE_VIEW_OK; ++i) {
    function(std::as_const(port),
             record_name{.dvi = dvi.position, .kind = object_kind::output, .index = i});
  }
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
  morvane_view_var variable{};
  for (std::uint32_t i = 0; morvane_view_variable(&view, &dvi, i, &variable) == MORVANE_VIEW_OK;
       ++i) {
    function(std::as_const(variable),
             record_name{.dvi = dvi.position, .kind = object_kind::variable, .index = i});
  }
}

/// Each SMB block.
template <class Function>
void for_each_smb(const morvane_view& view, const morvane_view_dvi& dvi, Function function) {
  morvane_view_smb_block smb{};
  for (std::uint32_t i = 0; morvane_view_smb(&view, &dvi, i, &smb) == MORVANE_VIEW_OK; ++i) {
    function(std::as_const(smb),
             record_name{.dvi = dvi.position, .kind = object_kind::smb, .index = i});
  }
}

}  // namespace morvane::cli

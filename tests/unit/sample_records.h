// Records with only a name, lists of records, and the bytes of a record.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "format/records.h"
#include "inspect/package_reader.h"

namespace morvane::test {

inline dvi_desc dvi_named(std::string_view name) {
  dvi_desc dvi{};
  name.copy(dvi.dag_name, sizeof dvi.dag_name);
  return dvi;
}

inline port_desc port_named(std::string_view name, std::string_view layer_name = "") {
  port_desc port{};
  name.copy(port.port_name, sizeof port.port_name);
  layer_name.copy(port.layer_name, sizeof port.layer_name);
  return port;
}

inline var_desc variable_of(std::string_view name, std::uint32_t boffset, std::uint32_t bsize) {
  var_desc variable{};
  name.copy(variable.var, sizeof variable.var);
  variable.boffset = boffset;
  variable.bsize = bsize;
  return variable;
}

inline smb_desc smb_of(std::string_view name, std::uint32_t offset) {
  smb_desc smb{};
  name.copy(smb.smb_name, sizeof smb.smb_name);
  smb.vbase_byte_offset = offset;
  return smb;
}

/// A list in which all claimed items are present.
template <class Item>
claimed_list<Item> list_of(std::vector<Item> items) {
  const std::size_t count = items.size();
  return {.count = count, .present = std::move(items)};
}

/// The bytes of a record in a package.
template <class Record>
std::string record_text(const Record& record) {
  return {reinterpret_cast<const char*>(&record), sizeof record};
}

}  // namespace morvane::test

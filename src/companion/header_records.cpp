#include "companion/header_records.h"

#include <cstring>
#include <vector>

#include "headers/dag_descriptions.h"
#include "headers/port_descriptions.h"
#include "headers/vproc_descriptions.h"
#include "headers/vproc_variables.h"
#include "io/message.h"

namespace morvane::companion {

namespace {

/// Compares a list with the package from an offset on, and moves the offset behind it.
template <class Record>
bool holds(const morvane_view& package, std::size_t& offset, const std::vector<Record>& records) {
  const std::size_t size = records.size() * sizeof(Record);
  if (size > package.size || offset > package.size - size) {
    return false;
  }
  const bool same = size == 0 || std::memcmp(package.bytes + offset, records.data(), size) == 0;
  offset += size;
  return same;
}

bool holds_ports(const morvane_view& package, const morvane_view_dvi& dvi,
                 std::string_view header) {
  std::vector<port_desc> ports;
  ports.reserve(std::size_t{dvi.input_num} + dvi.output_num);
  std::size_t offset = dvi.block;
  return parse_port_descriptions(ports, header, input_ports) == 0 &&
         parse_port_descriptions(ports, header, output_ports) == 0 && holds(package, offset, ports);
}

bool holds_vproc(const morvane_view& package, const morvane_view_dvi& dvi,
                 std::string_view header) {
  std::vector<var_desc> variables;
  std::vector<smb_desc> smbs;
  std::size_t table = dvi.vproc_offset;
  std::size_t block = dvi.vproc_block;
  return parse_vproc_variables(variables, header) == 0 &&
         parse_smb_descriptions(smbs, header) == 0 &&
         holds(package, table, std::vector{count_vproc_records(header)}) &&
         holds(package, block, variables) && holds(package, block, smbs);
}

}  // namespace

bool holds_records_of(const morvane_view& package, const morvane_view_dvi& dvi,
                      std::string_view header, std::int32_t index) {
  const collected_messages known_already;
  dvi_desc description{};
  std::size_t offset = dvi.offset;
  return parse_dag_description(description, header, index, dvi.position) == 0 &&
         holds(package, offset, std::vector{description}) && holds_ports(package, dvi, header) &&
         (morvane_view_need_vproc(&package) != MORVANE_VIEW_OK ||
          holds_vproc(package, dvi, header));
}

}  // namespace morvane::companion

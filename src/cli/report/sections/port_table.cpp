#include <array>
#include <vector>

#include "cli/package/package_walk.h"
#include "cli/report/sections/page_parts.h"
#include "cli/report/sections/sections.h"

namespace morvane::cli {

namespace {

/// A flag of a port, with the bit offset that belongs to it, if any.
struct port_flag {
  std::uint32_t bit;
  std::string_view name;
  std::uint32_t morvane_view_port::*bit_offset;
};

constexpr std::array<port_flag, 6> port_flags{{
    {MORVANE_PORT_BITVECTOR, "bitvector", nullptr},
    {MORVANE_PORT_DROTATE, "drotate", &morvane_view_port::drotate_bit_offset},
    {MORVANE_PORT_HFLIP, "hflip", &morvane_view_port::hflip_bit_offset},
    {MORVANE_PORT_VFLIP, "vflip", &morvane_view_port::vflip_bit_offset},
    {MORVANE_PORT_DFLIP, "dflip", &morvane_view_port::dflip_bit_offset},
    {MORVANE_PORT_PFLIP, "pflip", &morvane_view_port::pflip_bit_offset},
}};

/// A table that is being written.
struct port_table_rows {
  const page_content& content;
  const morvane_view_dvi& dvi;
  record_marks& marks;
  page_output& out;
  std::vector<std::uint32_t> partners;  // of each port one that shares bytes, or itself
};

/// For each port another one that shares bytes with it, or the port itself.
std::vector<std::uint32_t> partners_of(const morvane_view& view, const morvane_view_dvi& dvi) {
  const std::vector<used_range> ranges = port_ranges(view, dvi);
  std::vector<std::uint32_t> partners;
  partners.reserve(ranges.size());
  for (const used_range& range : ranges) {
    partners.push_back(range.owner);
  }
  for (const auto& [one, other] : find_overlaps(ranges)) {
    partners[one.owner] = other.owner;
    partners[other.owner] = one.owner;
  }
  return partners;
}

void write_name(const port_table_rows& rows, const morvane_view_port& port,
                const record_name& name) {
  const bool is_input = name.kind == object_kind::input;
  const std::string_view port_name = str(port.port_name);
  write(rows.out, "<tr><th scope=\"row\"><i class=\"", is_input ? "in" : "out", "\">",
        name_in_dvi(name), "</i> ", isolated(port_name),
        label_of(next_mark(rows.marks, name.kind, port_name)));
  if (port.layer_name.length != 0) {
    write(rows.out, "<small>", isolated(str(port.layer_name)), "</small>");
  }
  write(rows.out, "</th>");
}

/// Number, data format and flags.
void write_format(const morvane_view_port& port, page_output& out) {
  write(out, "<td>", port.dram_format, " <small>", data_format(port));
  for (const port_flag& flag : port_flags) {
    if ((port.flags & flag.bit) != 0) {
      write(out, " ", flag.name);
      if (flag.bit_offset != nullptr) {
        write(out, " ", port.*flag.bit_offset);
      }
    }
  }
  write(out, "</small></td>");
}

void write_flow(const port_table_rows& rows, const record_name& name) {
  const network_flow& flow = rows.content.flow;
  const port_place place{name.dvi, name.index};
  write(rows.out, "<td>");
  if (name.kind == object_kind::input) {
    const connection* const source = connection_to(flow, place);
    write(rows.out,
          source == nullptr ? std::string(origin_of(flow, place))
                            : joined("from ", dvi_link(source->output.dvi)),
          source != nullptr && source->mismatch != 0 ? " <b class=\"bad\">differs</b>" : "");
  } else {
    const auto fed = connections_from(flow, place);
    write(rows.out, "to ",
          fed.empty() ? std::string(destination_of(flow)) : listed(fed, max_links, fed_dvi_link));
  }
  write(rows.out, "</td></tr>\n");
}

void write_row(const port_table_rows& rows, const morvane_view_port& port,
               const record_name& name) {
  write_name(rows, port, name);
  write(rows.out, "<td>", port_dims(port), "<small>pitch ", grouped(port.pitch), "</small></td>");
  write_format(port, rows.out);
  write(rows.out, "<td>", hexadecimal(port.port_byte_offset));
  const std::uint32_t position =
      name.kind == object_kind::input ? name.index : rows.dvi.input_num + name.index;
  if (rows.partners[position] != position) {
    write(rows.out, "<small class=\"bad\">shares bytes with ",
          name_in_dvi(port_name_at(rows.dvi, rows.partners[position])), "</small>");
  }
  write(rows.out, "</td><td>", byte_size(port.port_size), "</td>");
  write_flow(rows, name);
}

}  // namespace

void write_port_table(const page_content& content, const morvane_view_dvi& dvi, record_marks& marks,
                      page_output& out) {
  const std::uint64_t count = port_count(dvi);
  if (count == 0) {
    return;
  }
  const port_table_rows rows{content, dvi, marks, out, partners_of(content.package.view, dvi)};
  write(out, "<h4>", counted(count, "port"), "</h4>\n",
        table_begin("port-table", {"Port", dims_letters, "Format", "Offset", "Size", "Data"}));
  for_each_port(
      content.package.view, dvi,
      [&](const morvane_view_port& port, const record_name& name) { write_row(rows, port, name); });
  write(out, table_end);
}

}  // namespace morvane::cli

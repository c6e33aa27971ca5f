#include "cli/package/package_walk.h"

#include "cli/output/printable_text.h"

namespace morvane::cli {

std::string name_in_dvi(const record_name& name) {
  return joined(name_of(name.kind), " ", name.index);
}

std::string str(const record_name& name) {
  std::string text;
  if (name.kind != object_kind::dvi) {
    const std::string own = name.own.empty() ? joined(name.index) : printable(name.own);
    append_pieces(text, name_of(name.kind), " ", own, " of ");
  }
  append_pieces(text, "DVI ", name.dvi);
  return name.dag.empty() ? text : joined(text, " (", printable(name.dag), ")");
}

std::string data_format(const morvane_view_port& port) {
  const bool is_given =
      port.sign != 0xFF || port.datasize != 0xFF || port.expoffset != -1 || port.expbits != 0xFF;
  return is_given ? joined(port.sign, ",", port.datasize, ",", port.expoffset, ",", port.expbits)
                  : "-";
}

record_name port_name_at(const morvane_view_dvi& dvi, std::uint32_t position) {
  if (position < dvi.input_num) {
    return {.dvi = dvi.position, .kind = object_kind::input, .index = position};
  }
  return {.dvi = dvi.position, .kind = object_kind::output, .index = position - dvi.input_num};
}

std::vector<morvane_view_dvi> dvis_of(const morvane_view& view) {
  std::vector<morvane_view_dvi> dvis;
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) { dvis.push_back(dvi); });
  return dvis;
}

}  // namespace morvane::cli

#include "cli/report/model/file_parts.h"

#include <algorithm>

#include "cli/output/printable_text.h"
#include "cli/package/package_walk.h"

namespace morvane::cli {

namespace {

/// Collects parts. What is not in the file is cut off.
struct part_list {
  std::uint64_t file_size;
  std::vector<file_part> parts{};

  void add(std::uint64_t offset, std::uint64_t size, std::string_view kind, std::string name,
           std::optional<std::uint32_t> dvi = {}) {
    const std::uint64_t end = std::min(file_size, offset + size);
    if (offset < end) {
      parts.push_back({offset, end - offset, kind, std::move(name), dvi});
    }
  }
};

}  // namespace

std::vector<file_part> parts_of(const opened_package& package) {
  const morvane_view& view = package.view;
  part_list list{view.size};
  list.add(0, sizeof(morvane_pkg_header), "head", "header");
  list.add(sizeof(morvane_pkg_header), std::uint64_t{view.dvi_num} * sizeof(morvane_dvi_desc),
           "head", "DVI table");
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    const std::string name = str(record_name{.dvi = dvi.position});
    const std::uint64_t ports = port_count(dvi) * sizeof(morvane_port_desc);
    list.add(dvi.block, ports, "ports", "ports of " + name, dvi.position);
    list.add(dvi.block + ports, dvi.dvi_img_size, "image", "image of " + name, dvi.position);
  });
  if (view.vproc_table != 0) {
    list.add(view.vproc_table, std::uint64_t{view.dvi_num} * sizeof(morvane_vproc_desc), "vproc",
             "vproc table");
  }
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    list.add(dvi.vproc_block, dvi.vproc_records_size, "vproc",
             "vproc block of " + str(record_name{.dvi = dvi.position}), dvi.position);
  });
  const std::uint64_t reached =
      list.parts.empty() ? 0 : list.parts.back().offset + list.parts.back().size;
  list.add(reached, view.size - reached, "rest", "bytes after the damage");
  return list.parts;
}

std::vector<file_part> joined_parts(const std::vector<file_part>& parts, std::uint32_t dvis,
                                    std::uint32_t most) {
  const std::uint32_t together = std::max(1U, (dvis + most - 1) / most);
  std::vector<file_part> joined_ones;
  for (file_part part : parts) {
    if (part.dvi && part.kind == "vproc") {
      part.name = "vproc blocks";
      part.dvi.reset();
    } else if (part.dvi) {
      const std::uint32_t first = *part.dvi / together * together;
      part.joined_dvis = std::min(together, dvis - first);
      part.kind = "image";
      part.dvi = first;
      part.name = together == 1 ? str(record_name{.dvi = first})
                                : joined("DVIs ", first, " to ", first + part.joined_dvis - 1);
    }
    if (!joined_ones.empty() && joined_ones.back().name == part.name) {
      joined_ones.back().size += part.size;
    } else {
      joined_ones.push_back(std::move(part));
    }
  }
  return joined_ones;
}

}  // namespace morvane::cli

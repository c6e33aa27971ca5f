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
           std::optional<std::uint32_t> dvi = {}, std::uint32_t joined_dvis = 0) {
    const std::uint64_t end = std::min(file_size, offset + size);
    if (offset < end) {
      parts.push_back({offset, end - offset, kind, std::move(name), dvi, joined_dvis});
    }
  }
};

std::uint64_t ports_size(const morvane_view_dvi& dvi) {
  return port_count(dvi) * sizeof(morvane_port_desc);
}

void add_head(const morvane_view& view, part_list& list) {
  list.add(0, sizeof(morvane_pkg_header), "head", "header");
  if (list.file_size >= sizeof(morvane_pkg_header)) {
    list.add(sizeof(morvane_pkg_header), std::uint64_t{view.dvi_num} * sizeof(morvane_dvi_desc),
             "head", "DVI table");
  }
}

void add_rest(part_list& list) {
  const std::uint64_t reached =
      list.parts.empty() ? 0 : list.parts.back().offset + list.parts.back().size;
  list.add(reached, list.file_size - reached, "rest", "bytes after the damage");
}

void add_vproc_table(const morvane_view& view, part_list& list) {
  if (view.vproc_table != 0) {
    list.add(view.vproc_table, std::uint64_t{view.dvi_num} * sizeof(morvane_vproc_desc), "vproc",
             "vproc table");
  }
}

}  // namespace

std::vector<file_part> parts_of(const opened_package& package) {
  const morvane_view& view = package.view;
  part_list list{package.bytes.bytes().size()};
  add_head(view, list);
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    const std::string name = str(record_name{.dvi = dvi.position});
    list.add(dvi.block, ports_size(dvi), "ports", "ports of " + name, dvi.position);
    list.add(dvi.block + ports_size(dvi), dvi.dvi_img_size, "image", "image of " + name,
             dvi.position);
  });
  add_vproc_table(view, list);
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    if (dvi.vproc_offset != 0) {
      list.add(dvi.vproc_block, dvi.vproc_records_size, "vproc",
               "vproc block of " + str(record_name{.dvi = dvi.position}), dvi.position);
    }
  });
  add_rest(list);
  return list.parts;
}

std::vector<file_part> joined_parts(const opened_package& package, std::size_t most) {
  const morvane_view& view = package.view;
  part_list list{package.bytes.bytes().size()};
  add_head(view, list);
  const auto together =
      std::max(1U, static_cast<std::uint32_t>((view.sound_dvis + most - 1) / most));
  std::uint64_t begin = 0;
  std::uint64_t vproc_end = 0;
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    begin = dvi.position % together == 0 ? dvi.block : begin;
    if ((dvi.position + 1) % together == 0 || dvi.position + 1 == view.sound_dvis) {
      const std::uint32_t first = dvi.position - dvi.position % together;
      const std::uint64_t end = dvi.block + ports_size(dvi) + dvi.dvi_img_size;
      list.add(begin, end - begin, "image",
               together == 1 ? str(record_name{.dvi = first})
                             : joined("DVIs ", first, " to ", dvi.position),
               first, dvi.position + 1 - first);
    }
    if (dvi.vproc_offset != 0) {
      vproc_end = dvi.vproc_block + dvi.vproc_records_size;
    }
  });
  add_vproc_table(view, list);
  if (vproc_end != 0) {
    const std::uint64_t blocks = list.parts.back().offset + list.parts.back().size;
    list.add(blocks, vproc_end - blocks, "vproc", "vproc blocks");
  }
  add_rest(list);
  return list.parts;
}

}  // namespace morvane::cli

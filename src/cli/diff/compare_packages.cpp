#include "cli/diff/compare_packages.h"

#include <cstddef>
#include <vector>

#include "cli/diff/compare_records.h"
#include "cli/diff/matched_names.h"
#include "cli/package/package_walk.h"

namespace morvane::cli {

namespace {

constexpr record_form<morvane_view_port, port_fields.size()> input_form{
    object_kind::input, sizeof(morvane_port_desc), &morvane_view_port::port_name, port_fields};
constexpr record_form<morvane_view_port, port_fields.size()> output_form{
    object_kind::output, sizeof(morvane_port_desc), &morvane_view_port::port_name, port_fields};
constexpr record_form<morvane_view_var, variable_fields.size()> variable_form{
    object_kind::variable, sizeof(morvane_var_desc), &morvane_view_var::var, variable_fields};
constexpr record_form<morvane_view_smb_block, smb_fields.size()> smb_form{
    object_kind::smb, sizeof(morvane_smb_desc), &morvane_view_smb_block::smb_name, smb_fields};

/// A DVI of both packages.
struct dvi_pair {
  named_record name;
  const morvane_view_dvi& old_dvi;
  const morvane_view_dvi& new_dvi;
};

/// Both packages, and who is told how they differ.
struct package_pair {
  const opened_package& old_package;
  const opened_package& new_package;
  const difference_sink& sink;
};

bool has_vproc(const opened_package& package) {
  return morvane_view_need_vproc(&package.view) == MORVANE_VIEW_OK;
}

void compare_headers(const package_pair& both) {
  const morvane_view& old_view = both.old_package.view;
  const morvane_view& new_view = both.new_package.view;
  if (has_header(both.old_package) && has_header(both.new_package)) {
    compare_fields({},
                   record_pair<morvane_view>{old_view, new_view, old_view.bytes, new_view.bytes},
                   sizeof(morvane_pkg_header), header_fields, both.sink);
  }
  if (has_vproc(both.old_package) != has_vproc(both.new_package)) {
    both.sink(
        {{}, field_change{"has_vproc", has_vproc(both.old_package), has_vproc(both.new_package)}});
  }
}

std::vector<morvane_view_dvi> dvis_of(const opened_package& package) {
  std::vector<morvane_view_dvi> dvis;
  for_each_dvi(package.view, [&](const morvane_view_dvi& dvi) { dvis.push_back(dvi); });
  return dvis;
}

/// Collects the records that a walk over a DVI hands out.
template <class Record, class Walk>
record_list<Record> collect(const opened_package& package, const morvane_view_dvi& dvi, Walk walk) {
  record_list<Record> list{package.view.bytes};
  walk(package.view, dvi,
       [&](const Record& record, const record_name& /*name*/) { list.records.push_back(record); });
  return list;
}

/// Compares the records of one kind, those that a walk over a DVI hands out.
template <class Record, std::size_t count, class Walk>
void compare_walks(const package_pair& both, const dvi_pair& dvi,
                   const record_form<Record, count>& form, Walk walk) {
  compare_lists(dvi.name, form, collect<Record>(both.old_package, dvi.old_dvi, walk),
                collect<Record>(both.new_package, dvi.new_dvi, walk), both.sink);
}

void compare_ports(const package_pair& both, const dvi_pair& dvi) {
  compare_walks(both, dvi, input_form, [](const auto& view, const auto& of, auto function) {
    for_each_input(view, of, function);
  });
  compare_walks(both, dvi, output_form, [](const auto& view, const auto& of, auto function) {
    for_each_output(view, of, function);
  });
}

void compare_vproc_blocks(const package_pair& both, const dvi_pair& dvi) {
  compare_walks(both, dvi, variable_form, [](const auto& view, const auto& of, auto function) {
    for_each_variable(view, of, function);
  });
  compare_walks(both, dvi, smb_form, [](const auto& view, const auto& of, auto function) {
    for_each_smb(view, of, function);
  });
}

void compare_images(const package_pair& both, const dvi_pair& dvi) {
  const auto found =
      compare_bytes({both.old_package.bytes, image_of(both.old_package.view, dvi.old_dvi)},
                    {both.new_package.bytes, image_of(both.new_package.view, dvi.new_dvi)});
  if (found) {
    both.sink({{object_kind::image, dvi.name, {}}, *found});
  }
}

void compare_dvi_fields(const package_pair& both, const dvi_pair& dvi) {
  const std::uint8_t* const old_bytes = both.old_package.view.bytes;
  const std::uint8_t* const new_bytes = both.new_package.view.bytes;
  const compared_part part{object_kind::dvi, dvi.name, {}};
  compare_fields(
      part,
      record_pair<morvane_view_dvi>{dvi.old_dvi, dvi.new_dvi, old_bytes + dvi.old_dvi.offset,
                                    new_bytes + dvi.new_dvi.offset},
      sizeof(morvane_dvi_desc), dvi_fields, both.sink);
  if (dvi.old_dvi.vproc_offset != 0 && dvi.new_dvi.vproc_offset != 0) {
    compare_fields(part,
                   record_pair<morvane_view_dvi>{dvi.old_dvi, dvi.new_dvi,
                                                 old_bytes + dvi.old_dvi.vproc_offset,
                                                 new_bytes + dvi.new_dvi.vproc_offset},
                   sizeof(morvane_vproc_desc), vproc_fields, both.sink);
  }
}

void compare_dvis(const package_pair& both, const dvi_pair& dvi) {
  compare_dvi_fields(both, dvi);
  compare_ports(both, dvi);
  compare_images(both, dvi);
  compare_vproc_blocks(both, dvi);
  release_dvi(both.old_package, dvi.old_dvi);
  release_dvi(both.new_package, dvi.new_dvi);
}

}  // namespace

void compare_packages(const opened_package& old_package, const opened_package& new_package,
                      const difference_sink& sink,
                      const std::function<void(std::uint64_t done)>& progress) {
  const package_pair both{old_package, new_package, sink};
  compare_headers(both);
  const std::vector<morvane_view_dvi> old_dvis = dvis_of(old_package);
  const std::vector<morvane_view_dvi> new_dvis = dvis_of(new_package);
  for (const matched_name& match : match_names(names_of(old_dvis, &morvane_view_dvi::dag_name),
                                               names_of(new_dvis, &morvane_view_dvi::dag_name))) {
    const named_record name{match.name, match.occurrence};
    if (compare_positions({object_kind::dvi, name, {}}, match, sink)) {
      const morvane_view_dvi& old_dvi = old_dvis[*match.old_position];
      compare_dvis(both, {name, old_dvi, new_dvis[*match.new_position]});
      progress(old_dvi.block);
    }
  }
}

}  // namespace morvane::cli

#include "cli/check/table_rules.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "cli/check/record_rules.h"
#include "cli/output/printable_text.h"
#include "cli/package/overlaps.h"
#include "cli/package/package_walk.h"

namespace morvane::cli {

namespace {

/// The positions of the DAG names met so far. The names lie in the package.
using known_dag_names = std::unordered_map<std::string_view, std::uint32_t>;

void check_repetition(const morvane_view_dvi& dvi, known_dag_names& names,
                      const finding_sink& sink) {
  const auto [known, is_new] = names.emplace(str(dvi.dag_name), dvi.position);
  if (!is_new) {
    report(
        sink, kind_of("repeated-dag-name"), dvi.offset + offsetof(morvane_dvi_desc, dag_name),
        joined(str(record_name{.dvi = dvi.position}), ": dag_name ", in_quotes(str(dvi.dag_name)),
               " is that of ", str(record_name{.dvi = known->second}), " too"));
  }
}

void check_parts(const morvane_view_dvi& dvi, const finding_sink& sink) {
  const record_name name{.dvi = dvi.position};
  if (dvi.input_num == 0 && dvi.output_num == 0) {
    report(sink, kind_of("dvi-without-ports"), dvi.offset + offsetof(morvane_dvi_desc, input_num),
           str(name) + " has no ports");
  }
  if (dvi.dvi_img_size == 0) {
    report(sink, kind_of("dvi-without-image"),
           dvi.offset + offsetof(morvane_dvi_desc, dvi_img_size), str(name) + " has no image");
  }
}

void check_dagbin(const morvane_view_dvi& dvi, const finding_sink& sink) {
  const used_range image = image_range(dvi);
  if (!is_inside(dvi.dvi_dag_vaddr, image)) {
    report(sink, kind_of("dagbin-outside-image"),
           dvi.offset + offsetof(morvane_dvi_desc, dvi_dag_vaddr),
           joined(str(record_name{.dvi = dvi.position}), ": dvi_dag_vaddr is ", dvi.dvi_dag_vaddr,
                  ", outside the image, which has ", range_text(image)));
  }
}

void note_image_overlaps(std::vector<used_range> images, const finding_sink& sink) {
  const std::vector<overlap> overlaps = find_overlaps(std::move(images));
  for (const auto& [one, other] : overlaps) {
    constexpr std::size_t in_record = offsetof(morvane_dvi_desc, dvi_img_vaddr);
    report(sink, kind_of("images-overlap"),
           sizeof(morvane_pkg_header) + other.owner * sizeof(morvane_dvi_desc) + in_record,
           joined(str(record_name{.dvi = other.owner}), ": the image, ", range_text(other),
                  ", shares addresses with that of ", str(record_name{.dvi = one.owner}), ", ",
                  range_text(one)));
  }
}

}  // namespace

void check_table(const morvane_view& view, bool with_notes, const finding_sink& sink) {
  known_dag_names names;
  names.reserve(view.sound_dvis);
  std::vector<used_range> images;
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    check_dvi(dvi, sink);
    check_repetition(dvi, names, sink);
    check_parts(dvi, sink);
    check_dagbin(dvi, sink);
    if (with_notes) {
      images.push_back(image_range(dvi));
    }
  });
  note_image_overlaps(std::move(images), sink);
}

}  // namespace morvane::cli

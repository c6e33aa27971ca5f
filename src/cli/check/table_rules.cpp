#include "cli/check/table_rules.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

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
  const record_name name{.dvi = dvi.position, .dag = str(dvi.dag_name)};
  if (dvi.input_num == 0 && dvi.output_num == 0) {
    report(sink, kind_of("dvi-without-ports"), dvi.offset + offsetof(morvane_dvi_desc, input_num),
           str(name) + " has no ports");
  }
  if (dvi.dvi_img_size == 0) {
    report(sink, kind_of("dvi-without-image"),
           dvi.offset + offsetof(morvane_dvi_desc, dvi_img_size), str(name) + " has no image");
  }
}

/// A header without a macro for the address leaves it 0, which is only good to know.
void check_dagbin(const morvane_view_dvi& dvi, bool with_notes, const finding_sink& sink) {
  const used_range image = image_range(dvi);
  const bool is_given = dvi.dvi_dag_vaddr != 0;
  if (dvi.dvi_img_size == 0 || is_inside(dvi.dvi_dag_vaddr, image) || !(is_given || with_notes)) {
    return;
  }
  sink({.kind = kind_of("dagbin-outside-image"),
        .file = {},
        .place = {.offset = dvi.offset + offsetof(morvane_dvi_desc, dvi_dag_vaddr)},
        .text = joined(str(record_name{.dvi = dvi.position, .dag = str(dvi.dag_name)}),
                       ": dvi_dag_vaddr is ", hexadecimal(dvi.dvi_dag_vaddr),
                       ", outside the image, which has ", range_text(image)),
        .level = is_given ? severity::warning : severity::note});
}

}  // namespace

void check_table(const morvane_view& view, bool with_notes, const finding_sink& sink) {
  known_dag_names names;
  names.reserve(view.sound_dvis);
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    check_dvi(dvi, sink);
    check_repetition(dvi, names, sink);
    check_parts(dvi, sink);
    check_dagbin(dvi, with_notes, sink);
  });
}

}  // namespace morvane::cli

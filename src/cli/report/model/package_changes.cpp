#include "cli/report/model/package_changes.h"

#include <span>
#include <unordered_map>
#include <variant>

#include "cli/diff/compare_packages.h"
#include "cli/package/package_walk.h"
#include "cli/report/model/page_limits.h"

namespace morvane::cli {

namespace {

/// The positions of DVIs by name and occurrence.
std::map<named_record, std::uint32_t> positions_in(const opened_package& package) {
  std::map<named_record, std::uint32_t> positions;
  std::unordered_map<std::string_view, std::uint32_t> occurrences;
  for_each_dvi(package.view, [&](const morvane_view_dvi& dvi) {
    const std::string_view name = str(dvi.dag_name);
    positions.emplace(named_record{name, ++occurrences[name]}, dvi.position);
  });
  return positions;
}

change_mark mark_of(const difference& found) {
  return std::holds_alternative<appeared>(found.change) ? change_mark::added : change_mark::changed;
}

/// Marks the DVI that a difference belongs to.
void mark_dvi(dvi_changes& dvi, const difference& found, bool is_kept, std::size_t at) {
  const bool is_of_dvi = found.part.kind == object_kind::dvi;
  if (dvi.mark == change_mark::none) {
    dvi.mark = is_of_dvi ? mark_of(found) : change_mark::changed;
  }
  if (is_kept) {
    dvi.first = dvi.count == 0 ? at : dvi.first;
    ++dvi.count;
  }
  ++dvi.all;
}

}  // namespace

package_changes find_changes(const opened_package& old_package, const opened_package& new_package,
                             console& streams) {
  package_changes changes{.old_name = std::string(file_name(old_package.path)),
                          .is_old_damaged = is_damaged(old_package)};
  changes.dvis.resize(new_package.view.sound_dvis);
  const auto positions = positions_in(new_package);
  compare_packages(old_package, new_package, streams, [&](const difference& found) {
    const bool is_kept = changes.kept.size() < max_kept_differences;
    const auto dvi = positions.find(found.part.dvi);
    if (found.part.kind != object_kind::package && dvi != positions.end()) {
      mark_dvi(changes.dvis[dvi->second], found, is_kept, changes.kept.size());
    }
    if (is_kept) {
      changes.kept.push_back(found);
    }
    ++changes.all;
  });
  return changes;
}

record_marks marks_of(const package_changes* changes, std::uint32_t dvi) {
  record_marks marks;
  if (changes != nullptr) {
    const dvi_changes& range = changes->dvis[dvi];
    for (const difference& found : std::span(changes->kept).subspan(range.first, range.count)) {
      marks.marks.emplace(std::tuple(found.part.kind, found.part.record), mark_of(found));
    }
  }
  return marks;
}

change_mark next_mark(record_marks& marks, object_kind kind, std::string_view name) {
  if (marks.marks.empty()) {
    return change_mark::none;
  }
  const auto mark = marks.marks.find({kind, {name, ++marks.met[{kind, name}]}});
  return mark == marks.marks.end() ? change_mark::none : mark->second;
}

}  // namespace morvane::cli

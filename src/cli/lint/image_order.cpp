#include "cli/lint/image_order.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <tuple>

#include "cli/output/printable_text.h"
#include "discovery/file_names.h"
#include "format/file_naming.h"

namespace morvane::cli {

namespace {

bool has_index_mark(std::string_view name) {
  return name.find(index_mark) != std::string_view::npos;
}

/// Images by their indices. Of those with the same, the first is most likely the right one: copies
/// have longer names.
std::vector<input_entry> ordered_images(const input_list& dvis) {
  std::vector<input_entry> ordered;
  for (const input_entry dvi : dvis) {
    ordered.push_back(dvi);
  }
  std::ranges::sort(ordered, {}, [](const input_entry& dvi) {
    return std::tuple(dvi.index, !has_index_mark(dvi.name), dvi.name.size(), dvi.name);
  });
  return ordered;
}

/// The indices below the greatest that no image has: the first of them, and how many there are.
struct missing_indices {
  std::vector<std::string> first{};
  std::size_t count = 0;
};

missing_indices find_missing(const std::vector<input_entry>& ordered) {
  missing_indices missing;
  std::int64_t expected = 0;
  for (const input_entry& dvi : ordered) {
    for (std::int64_t i = expected; i < dvi.index && missing.first.size() < most_listed; ++i) {
      missing.first.push_back(std::to_string(i));
    }
    missing.count += static_cast<std::size_t>(std::max<std::int64_t>(dvi.index - expected, 0));
    expected = std::max<std::int64_t>(expected, std::int64_t{dvi.index} + 1);
  }
  return missing;
}

std::string missing_text(const missing_indices& missing) {
  return joined("no image has the ", missing.count == 1 ? "index " : "indices ",
                listed(missing.first, missing.count));
}

constexpr std::string_view harm = " would depend on the machine";

/// Tells of the images whose names give no index; those are 0 for all of them.
void add_unmarked(const std::vector<input_entry>& ordered, std::vector<named_finding>& group) {
  std::vector<std::string> unmarked;
  for (const input_entry& dvi : ordered) {
    if (!has_index_mark(dvi.name)) {
      unmarked.emplace_back(dvi.name);
    }
  }
  if (unmarked.size() > 1) {
    group.push_back({.kind = kind_of("repeated-index"),
                     .name = {},
                     .text = joined(unmarked.size(), " images have no ", index_mark,
                                    "N in their names, so their order", harm, ": ",
                                    listed(unmarked, unmarked.size()))});
  }
}

/// Tells of an image whose index is that of one before it.
named_finding repetition(const input_entry& dvi, const input_entry& first) {
  const std::string reason = has_index_mark(dvi.name)
                                 ? std::string("the index is ")
                                 : joined("the name has no ", index_mark, "N, so the index is ");
  return {.kind = kind_of("repeated-index"),
          .name = std::string(dvi.name),
          .text = joined(reason, dvi.index, ", as that of ", printable(first.name),
                         ": the order of the two", harm)};
}

void add_repetitions(const std::vector<input_entry>& ordered, std::vector<named_finding>& group) {
  const bool unmarked_are_told = !group.empty();
  std::size_t first = 0;  // of the images with the index
  for (std::size_t i = 1; i < ordered.size(); ++i) {
    first = ordered[i].index == ordered[first].index ? first : i;
    if (first != i && (has_index_mark(ordered[i].name) || !unmarked_are_told)) {
      group.push_back(repetition(ordered[i], ordered[first]));
    }
  }
}

/// Tells of indices that are missing, at the place of the file if it is clear which one.
named_finding disorder(const input_list& dvis, const input_entry& last,
                       const missing_indices& missing) {
  const std::string_view stem = common_stem(dvis);
  const bool is_clear = missing.count == 1 && !stem.empty();
  return {.kind = kind_of("disordered-indices"),
          .name = is_clear ? image_name(joined(stem, missing.first.front())) : std::string(),
          .text = joined(missing_text(missing), ", but ", printable(last.name), " has the index ",
                         last.index, ": nothing can be packed")};
}

}  // namespace

std::string_view common_stem(const input_list& dvis) {
  std::string_view common;
  for (const input_entry dvi : dvis) {
    if (!has_index_mark(dvi.name)) {
      continue;
    }
    std::string_view stem = get_file_stem(dvi.name);
    stem.remove_suffix(stem.size() - (stem.find_last_not_of("0123456789") + 1));
    if (!common.empty() && stem != common) {
      return {};
    }
    common = stem;
  }
  return common;
}

bool check_order(const folder_check& check, const input_list& dvis, std::size_t left_out) {
  const std::vector<input_entry> ordered = ordered_images(dvis);
  const missing_indices missing = find_missing(ordered);
  const bool is_gap = missing.count > left_out;
  std::vector<named_finding> group;
  add_unmarked(ordered, group);
  add_repetitions(ordered, group);
  if (is_gap && !group.empty()) {
    append_pieces(group.front().text, "; ", missing_text(missing));
  } else if (is_gap) {
    group.push_back(disorder(dvis, ordered.back(), missing));
  }
  report_group(check, group);
  return group.empty();
}

}  // namespace morvane::cli

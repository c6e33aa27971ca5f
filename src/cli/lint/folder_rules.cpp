#include "cli/lint/folder_rules.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "cli/lint/folder_check.h"
#include "cli/lint/header_pairs.h"
#include "cli/lint/image_order.h"
#include "cli/output/printable_text.h"
#include "discovery/file_names.h"
#include "format/file_naming.h"
#include "format/length_limits.h"
#include "io/file.h"
#include "io/message.h"

namespace morvane::cli {

namespace {

/// Why an image whose name keeps it out of the package is left out.
named_finding left_out_image(std::string_view name) {
  if (name.size() > file_name_limit.longest) {
    return {.kind = kind_of("file-name-too-long"),
            .name = std::string(name),
            .text = joined("the name has ", name.size(), " bytes, and at most ",
                           file_name_limit.longest, " can be packed: the image is left out")};
  }
  return {.kind = kind_of("bad-index"),
          .name = std::string(name),
          .text = joined("the name has ", index_mark,
                         ", but no index before the extension: the image is left out")};
}

/// Tells of the images whose names keep them out of the package. Returns how many there are.
std::size_t check_left_out(const folder_check& check) {
  std::vector<named_finding> group;
  for (const std::string_view name : check.names.names) {
    std::int32_t index = 0;
    if (lower_case_type(name) == dvi_type && !is_input_file(name, dvi_type, index)) {
      group.push_back(left_out_image(name));
    }
  }
  report_group(check, group);
  return group.size();
}

bool is_image_name(std::string_view name) {
  return lower_case_type(name) == dvi_type;
}

/// The subfolders that hold images.
std::vector<std::string> subfolders_with_images(const folder_check& check) {
  std::vector<std::string> found;
  for (const std::string_view name : check.names.names) {
    const std::string path = join_path(check.scope.folder, name);
    if (!name.starts_with('.') && std::ranges::any_of(read_names(path).names, is_image_name)) {
      found.push_back(path);
    }
  }
  return found;
}

void check_emptiness(const folder_check& check) {
  const std::vector<std::string> subfolders = subfolders_with_images(check);
  std::string hint;
  if (!subfolders.empty()) {
    append_pieces(hint, "; there are images in ", listed(subfolders, subfolders.size()),
                  ": try morvane lint ", printable(subfolders.front()));
  }
  report_group(
      check, {{.kind = kind_of("no-images"),
               .name = {},
               .text = joined("no file with the extension .", dvi_type, " can be packed", hint)}});
}

/// Tells which files no image of the package has.
void note_unused(const folder_check& check, const folder_reading& reading) {
  std::vector<std::string> used;
  for (std::size_t i = 0; i < reading.dvis.size(); ++i) {
    used.push_back(reading.header(i));
  }
  std::ranges::sort(used);
  std::vector<named_finding> group;
  for (const std::string_view name : check.names.names) {
    const bool is_folder = name == "." || name == "..";
    if (!is_folder && !is_image_name(name) && !std::ranges::binary_search(used, name)) {
      group.push_back({.kind = kind_of("unused-file"),
                       .name = std::string(name),
                       .text = "the file belongs to no image: it is not read"});
    }
  }
  report_group(check, group);
}

}  // namespace

folder_reading check_names(const lint_scope& scope, const folder_names& names,
                           const finding_sink& sink) {
  const collected_messages forgotten(false);
  const folder_check check{.scope = scope, .names = names, .sink = sink};
  folder_reading reading;
  if (!order_input_files(names, dvi_type, reading.dvis)) {
    reading.dvis.sort_by_index();
  }
  reading.headers = find_headers(names, reading.dvis);
  std::size_t left_out = check_left_out(check);
  if (reading.dvis.empty() && left_out == 0) {
    check_emptiness(check);
  }
  left_out += drop_leftovers(check, reading);
  const bool is_ordered = check_order(check, reading.dvis, left_out);
  const bool is_paired = check_pairs(check, reading);
  if (is_paired && is_ordered && left_out == 0) {
    check_headers(check, reading);
  }
  if (scope.notes) {
    note_unused(check, reading);
  }
  return reading;
}

}  // namespace morvane::cli

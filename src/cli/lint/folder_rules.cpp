#include "cli/lint/folder_rules.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/output/printable_text.h"
#include "discovery/file_names.h"
#include "format/file_naming.h"
#include "format/length_limits.h"
#include "io/file.h"
#include "io/message.h"

namespace morvane::cli {

namespace {

struct folder_check {
  const lint_scope& scope;
  const finding_sink& sink;

  /// Tells what concerns a file, or the folder itself if the name is empty.
  void report(const finding_kind* kind, std::string_view name, std::string text) const {
    const std::string path = name.empty() ? scope.folder : join_path(scope.folder, name);
    sink({.kind = kind, .file = path, .place = whole_file, .text = std::move(text)});
  }
};

/// Tells why an image whose name keeps it out of the package is left out.
void check_name(const folder_check& check, std::string_view name) {
  if (lower_case_type(name) != dvi_type) {
    return;
  }
  if (name.size() > file_name_limit.longest) {
    check.report(kind_of("file-name-too-long"), name,
                 joined("the name has ", name.size(), " bytes, and at most ",
                        file_name_limit.longest, " can be packed: the image is left out"));
    return;
  }
  check.report(kind_of("bad-index"), name,
               "the name has _split_, but no index before the extension: the image is left out");
}

/// "0 is missing": why the indices do not fit; empty if each is used.
std::string index_fault(const std::map<std::int32_t, unsigned>& uses, std::size_t files) {
  for (std::int32_t i = 0; std::size_t(i) < files; ++i) {
    if (!uses.contains(i)) {
      return joined(i, " is missing");
    }
  }
  return {};
}

/// The index that is missing among those of the files, which are in order; -1 if there is none.
std::int32_t missing_index(const input_list& dvis) {
  std::int32_t expected = 0;
  for (const input_entry dvi : dvis) {
    if (dvi.index > expected) {
      return expected;
    }
    expected = dvi.index == expected ? expected + 1 : expected;
  }
  return -1;
}

void check_disorder(const folder_check& check, const input_list& dvis) {
  std::map<std::int32_t, unsigned> uses;
  for (const input_entry dvi : dvis) {
    ++uses[dvi.index];
  }
  const std::string fault = index_fault(uses, dvis.size());
  check.report(
      kind_of("disordered-indices"), {},
      joined("the greatest index is ", uses.rbegin()->first, ", but the number of images is ",
             dvis.size(), fault.empty() ? "" : "; index ", fault, ": nothing can be packed"));
}

/// The DVIs are in the order of their indices, and those of one index in the order of the folder.
void check_repetition(const folder_check& check, const input_list& dvis) {
  std::vector<input_entry> ordered;
  for (const input_entry dvi : dvis) {
    ordered.push_back(dvi);
  }
  std::ranges::sort(ordered, {},
                    [](const input_entry& dvi) { return std::pair(dvi.index, dvi.name); });
  for (std::size_t i = 1; i < ordered.size(); ++i) {
    if (ordered[i].index == ordered[i - 1].index) {
      check.report(kind_of("repeated-index"), ordered[i].name,
                   joined("the index is ", ordered[i].index, ", as that of ",
                          printable(ordered[i - 1].name), ": the order of the two is not defined"));
    }
  }
}

bool has_repetition(const input_list& dvis) {
  for (std::size_t i = 1; i < dvis.size(); ++i) {
    if (dvis[i].index == dvis[i - 1].index) {
      return true;
    }
  }
  return false;
}

void check_order(const folder_check& check, const input_list& dvis) {
  if (has_repetition(dvis)) {
    check_repetition(check, dvis);
  }
  const std::int32_t missing = missing_index(dvis);
  if (missing >= 0) {
    check.report(kind_of("index-gap"), {},
                 joined("no image has the index ", missing, ", but greater ones exist"));
  }
}

void check_pairs(const folder_check& check, const folder_reading& reading) {
  for (std::size_t i = 0; i < reading.dvis.size(); ++i) {
    if (has_header(reading.headers, i)) {
      continue;
    }
    const std::string_view hint =
        reading.headers.marked[i]
            ? ", and headers with an underscore count only if every image has one"
            : "";
    check.report(kind_of("unpaired-image"), reading.dvis[i].name,
                 joined("the header ", printable(reading.header(i)), " is missing", hint,
                        ": nothing can be packed"));
  }
}

/// The names in a folder that no image of the package has, in order: with notes all of them,
/// otherwise those of images.
std::vector<std::string> other_names(const lint_scope& scope, const folder_names& folder) {
  std::vector<std::string> others;
  for (const char* const name : folder.names) {
    std::int32_t index = 0;
    if ((scope.notes || lower_case_type(name) == dvi_type) &&
        !is_input_file(name, dvi_type, index)) {
      others.emplace_back(name);
    }
  }
  std::ranges::sort(others);
  return others;
}

void note_unused(const folder_check& check, const folder_reading& reading,
                 const std::vector<std::string>& names) {
  std::vector<bool> used(names.size());
  for (std::size_t i = 0; i < reading.dvis.size(); ++i) {
    const std::string header = reading.header(i);
    const auto found = std::ranges::lower_bound(names, header);
    if (found != names.end() && *found == header) {
      used[static_cast<std::size_t>(found - names.begin())] = true;
    }
  }
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool is_folder = names[i] == "." || names[i] == "..";
    if (!used[i] && !is_folder && lower_case_type(names[i]) != dvi_type) {
      check.report(kind_of("unused-file"), names[i],
                   "the file belongs to no image: it is not read");
    }
  }
}

}  // namespace

folder_reading check_names(const lint_scope& scope, const folder_names& names,
                           const finding_sink& sink) {
  const collected_messages forgotten(false);
  const folder_check check{.scope = scope, .sink = sink};
  folder_reading reading;
  const bool is_ordered = order_input_files(names, dvi_type, reading.dvis);
  reading.headers = find_headers(names, reading.dvis);
  if (reading.dvis.empty()) {
    check.report(kind_of("no-images"), {},
                 joined("no file with the extension .", dvi_type, " can be packed"));
  } else if (!is_ordered) {
    check_disorder(check, reading.dvis);
  } else {
    check_order(check, reading.dvis);
  }
  const std::vector<std::string> others = other_names(scope, names);
  for (const std::string& name : others) {
    check_name(check, name);
  }
  check_pairs(check, reading);
  if (scope.notes) {
    note_unused(check, reading, others);
  }
  return reading;
}

}  // namespace morvane::cli

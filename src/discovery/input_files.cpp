#include "discovery/input_files.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "discovery/file_names.h"
#include "discovery/position_index.h"
#include "format/file_naming.h"
#include "format/macros.h"
#include "headers/line_reader.h"
#include "io/file.h"
#include "io/message.h"

namespace morvane {

namespace {

/// Checks the greatest index only, and only if it is above 0. Gaps and repeated indices below it
/// are accepted.
bool in_order(const input_list& files) {
  std::int32_t greatest = -1;
  for (const input_entry file : files) {
    if (file.index != 0) {
      greatest = std::max(greatest, file.index);
    }
  }
  return greatest < 1 || static_cast<std::size_t>(greatest) + 1 == files.size();
}

std::uint64_t hash_of(std::string_view stem) {
  return std::hash<std::string_view>()(stem);
}

/// Finds DVIs by their stems: several can have the same, as only the case of their types differs.
position_index index_stems(const input_list& dvis) {
  position_index stems(dvis.size());
  for (std::uint32_t i = 0; i < dvis.size(); ++i) {
    stems.add(hash_of(get_file_stem(dvis[i].name)), i);
  }
  return stems;
}

/// Marks every DVI that has the stem.
void mark_dvis(const input_list& dvis, const position_index& stems, std::string_view stem,
               std::vector<bool>& marks) {
  stems.candidates(hash_of(stem), [&](std::uint32_t i) {
    if (get_file_stem(dvis[i].name) == stem) {
      marks[i] = true;
    }
  });
}

/// Those of the names that are of the wanted type.
input_list select_files(const folder_names& folder, std::string_view wanted_type) {
  input_list files;
  for (const char* const name : folder.names) {
    std::int32_t index = 0;
    if (is_input_file(name, wanted_type, index)) {
      files.add({.name = name, .index = index});
    }
  }
  return files;
}

}  // namespace

folder_names read_names(const std::string& folder) {
  const auto close = [](DIR* open_folder) { ::closedir(open_folder); };
  const std::unique_ptr<DIR, decltype(close)> entries(::opendir(folder.c_str()), close);
  if (!entries) {
    return {.error = errno};
  }
  folder_names found;
  errno = 0;
  while (const dirent* entry = ::readdir(entries.get())) {
    found.names.push_back(found.store.add(entry->d_name));
    errno = 0;
  }
  return errno == 0 ? std::move(found) : folder_names{.error = errno};
}

bool is_input_file(std::string_view name, std::string_view wanted_type, std::int32_t& index) {
  return get_file_type(name, false) == wanted_type && parse_file_index(name, index) == 0;
}

bool order_input_files(const folder_names& folder, std::string_view wanted_type,
                       input_list& files) {
  files = select_files(folder, wanted_type);
  if (!in_order(files)) {
    print_line("error: files in input folder are disordered.");
    return false;
  }
  files.sort_by_index();
  return true;
}

std::int32_t list_input_files(const std::string& folder, std::string_view wanted_type,
                              input_list& files) {
  const bool is_ordered = order_input_files(read_names(folder), wanted_type, files);
  return is_ordered ? static_cast<std::int32_t>(files.size()) : 0;
}

header_presence find_headers(const folder_names& folder, const input_list& dvis) {
  header_presence headers{.marked = std::vector<bool>(dvis.size()),
                          .plain = std::vector<bool>(dvis.size())};
  const position_index stems = index_stems(dvis);
  for (std::string_view name : folder.names) {
    if (!name.ends_with(header_ending)) {
      continue;
    }
    name.remove_suffix(header_ending.size());
    mark_dvis(dvis, stems, name, headers.plain);
    if (name.starts_with(header_mark)) {
      mark_dvis(dvis, stems, name.substr(header_mark.size()), headers.marked);
    }
  }
  headers.all_marked = std::ranges::find(headers.marked, false) == headers.marked.end();
  return headers;
}

std::string header_of(const header_presence& headers, const input_entry& dvi) {
  const std::string_view stem = get_file_stem(dvi.name);
  return headers.all_marked ? marked_header_name(stem) : header_name(stem);
}

bool has_header(const header_presence& headers, std::size_t position) {
  return headers.all_marked || headers.plain[position];
}

std::int32_t pair_header_files(const std::string& folder, const input_list& dvis,
                               input_list& headers) {
  const header_presence present = find_headers(read_names(folder), dvis);
  for (std::size_t i = 0; i < dvis.size(); ++i) {
    const std::string name = header_of(present, dvis[i]);
    if (!has_header(present, i)) {
      print_line("error: can't find file ", name,
                 ". please check filename format between .dvi and .h files.");
      break;
    }
    headers.add({.name = name, .index = dvis[i].index});
  }
  return static_cast<std::int32_t>(headers.size());
}

int check_duplicate_dag_names(const std::string& folder, const input_list& headers) {
  // The position of each name among the names. The message takes it as the position of the header,
  // which is wrong if an earlier header has no name. It stays so, as scripts compare the message.
  std::unordered_map<std::string, std::size_t> positions;
  for (const input_entry header : headers) {
    const std::string path = join_path(folder, header.name);
    const std::string text = read_file(path).text;
    line_reader lines{text};
    std::string_view name;
    if (!next_value(lines, dag_name_macro, name)) {
      continue;
    }
    const auto [earlier, is_new] = positions.try_emplace(std::string(name), positions.size());
    if (!is_new) {
      print_line("error: detection duplicate DAG NAME between file ", path, " and file ",
                 join_path(folder, headers[earlier->second].name));
      return 1;
    }
  }
  return 0;
}

}  // namespace morvane

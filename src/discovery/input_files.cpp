#include "discovery/input_files.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <unordered_set>

#include "discovery/file_names.h"
#include "format/file_naming.h"
#include "io/message.h"

namespace morvane {

namespace {

/// Checks the greatest index only, and only if it is above 0. Gaps and repeated indices below it
/// are accepted.
bool in_order(const std::vector<input_entry>& files) {
  std::int32_t greatest = -1;
  for (const input_entry& file : files) {
    if (file.index != 0) {
      greatest = std::max(greatest, file.index);
    }
  }
  return greatest < 1 || static_cast<std::size_t>(greatest) + 1 == files.size();
}

}  // namespace

std::vector<std::string> list_folder(const std::string& folder) {
  std::vector<std::string> names;
  const auto close = [](DIR* open_folder) { ::closedir(open_folder); };
  const std::unique_ptr<DIR, decltype(close)> entries(::opendir(folder.c_str()), close);
  if (!entries) {
    return names;
  }
  errno = 0;
  while (const dirent* entry = ::readdir(entries.get())) {
    names.emplace_back(entry->d_name);
    errno = 0;
  }
  if (errno != 0) {
    names.clear();
  }
  return names;
}

std::int32_t list_input_files(const std::string& folder, std::string_view wanted_type,
                              std::vector<input_entry>& files) {
  for (std::string& name : list_folder(folder)) {
    std::int32_t index = 0;
    if (get_file_type(name, false) == wanted_type && parse_file_index(name, index) == 0) {
      files.push_back({.name = std::move(name), .index = index});
    }
  }
  if (!in_order(files)) {
    print_line("error: files in input folder are disordered.");
    return 0;
  }
  const auto by_index = [](const input_entry& a, const input_entry& b) {
    return a.index < b.index;
  };
  std::sort(files.begin(), files.end(), by_index);
  return static_cast<std::int32_t>(files.size());
}

std::vector<wanted_header> find_header_files(const std::string& folder,
                                             const std::vector<input_entry>& dvis) {
  const std::vector<std::string> names = list_folder(folder);
  const std::unordered_set<std::string_view> present(names.begin(), names.end());
  const auto is_missing = [&](const std::string& name) { return !present.contains(name); };
  const auto marked_name = [](const input_entry& dvi) {
    return marked_header_name(get_file_stem(dvi.name));
  };
  const bool marked = std::ranges::none_of(dvis, is_missing, marked_name);
  std::vector<wanted_header> headers;
  headers.reserve(dvis.size());
  for (const input_entry& dvi : dvis) {
    std::string name = marked ? marked_name(dvi) : header_name(get_file_stem(dvi.name));
    const bool missing = is_missing(name);
    headers.push_back({.name = std::move(name), .is_missing = missing});
  }
  return headers;
}

std::int32_t pair_header_files(const std::string& folder, const std::vector<input_entry>& dvis,
                               std::vector<input_entry>& headers) {
  std::vector<wanted_header> wanted = find_header_files(folder, dvis);
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    if (wanted[i].is_missing) {
      print_line("error: can't find file ", wanted[i].name,
                 ". please check filename format between .dvi and .h files.");
      break;
    }
    headers.push_back({.name = std::move(wanted[i].name), .index = dvis[i].index});
  }
  return static_cast<std::int32_t>(headers.size());
}

}  // namespace morvane

#include "discovery/input_files.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

#include "discovery/file_names.h"
#include "discovery/position_index.h"
#include "format/file_naming.h"
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

/// The folder's files of the wanted type; none, and no message, if the folder cannot be read to its
/// end.
input_list read_input_files(const std::string& folder, std::string_view wanted_type) {
  input_list files;
  std::string messages;
  {
    collected_messages collected;
    const bool is_read = read_names(folder, [&](std::string_view name) {
      std::int32_t index = 0;
      if (is_input_file(name, wanted_type, index)) {
        files.add({.name = name, .index = index});
      }
    });
    if (!is_read) {
      return {};
    }
    messages = std::move(collected.text);
  }
  print_text(messages);
  return files;
}

header_presence no_headers(std::size_t dvis) {
  return {.marked = std::vector<bool>(dvis), .plain = std::vector<bool>(dvis)};
}

}  // namespace

bool read_names(const std::string& folder, const std::function<void(std::string_view)>& take) {
  const auto close = [](DIR* open_folder) { ::closedir(open_folder); };
  const std::unique_ptr<DIR, decltype(close)> entries(::opendir(folder.c_str()), close);
  if (!entries) {
    return false;
  }
  errno = 0;
  while (const dirent* entry = ::readdir(entries.get())) {
    take(entry->d_name);
    errno = 0;
  }
  return errno == 0;
}

bool is_input_file(std::string_view name, std::string_view wanted_type, std::int32_t& index) {
  return get_file_type(name, false) == wanted_type && parse_file_index(name, index) == 0;
}

std::int32_t list_input_files(const std::string& folder, std::string_view wanted_type,
                              input_list& files) {
  files = read_input_files(folder, wanted_type);
  if (!in_order(files)) {
    print_line("error: files in input folder are disordered.");
    return 0;
  }
  files.sort_by_index();
  return static_cast<std::int32_t>(files.size());
}

header_presence find_headers(const std::string& folder, const input_list& dvis) {
  header_presence headers = no_headers(dvis.size());
  const position_index stems = index_stems(dvis);
  const bool is_read = read_names(folder, [&](std::string_view name) {
    if (!name.ends_with(header_ending)) {
      return;
    }
    name.remove_suffix(header_ending.size());
    mark_dvis(dvis, stems, name, headers.plain);
    if (name.starts_with(header_mark)) {
      mark_dvis(dvis, stems, name.substr(header_mark.size()), headers.marked);
    }
  });
  if (!is_read) {
    headers = no_headers(dvis.size());
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
  const header_presence present = find_headers(folder, dvis);
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

}  // namespace morvane

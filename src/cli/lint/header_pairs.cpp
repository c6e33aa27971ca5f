#include "cli/lint/header_pairs.h"

#include <sys/stat.h>

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "cli/lint/image_order.h"
#include "cli/lint/input_states.h"
#include "cli/output/printable_text.h"
#include "discovery/file_names.h"
#include "format/file_naming.h"
#include "io/file.h"

namespace morvane::cli {

namespace {

bool is_hidden(std::string_view name) {
  return name.starts_with('.');
}

bool has_any_header(const header_presence& headers, std::size_t position) {
  return headers.marked[position] || headers.plain[position];
}

/// The images that certainly are some, by their indices.
std::unordered_map<std::int32_t, std::string_view> paired_images(const folder_reading& reading) {
  std::unordered_map<std::int32_t, std::string_view> paired;
  for (std::size_t i = 0; i < reading.dvis.size(); ++i) {
    const input_entry dvi = reading.dvis[i];
    if (has_any_header(reading.headers, i) && !is_hidden(dvi.name)) {
      paired.try_emplace(dvi.index, dvi.name);
    }
  }
  return paired;
}

/// The headers that belong to no image, in order.
std::vector<std::string> lone_headers(const folder_check& check, const folder_reading& reading) {
  std::unordered_set<std::string_view> stems;
  for (const input_entry dvi : reading.dvis) {
    stems.insert(get_file_stem(dvi.name));
  }
  std::vector<std::string> lone;
  for (const std::string_view name : check.names.names) {
    std::string_view stem = name;
    if (!name.ends_with(header_ending) || is_hidden(name)) {
      continue;
    }
    stem.remove_suffix(header_ending.size());
    const bool is_plain = stems.contains(stem);
    if (stem.starts_with(header_mark)) {
      stem.remove_prefix(header_mark.size());
    } else if (reading.headers.all_marked) {
      continue;
    }
    if (!is_plain && !stems.contains(stem)) {
      lone.emplace_back(name);
    }
  }
  return lone;
}

/// "; net.h belongs to no image", if only one header does not, and it was not told: it is probably
/// the one that is missed.
std::string lone_header_text(const folder_check& check, const folder_reading& reading,
                             std::string_view told) {
  const std::vector<std::string> lone = lone_headers(check, reading);
  if (lone.size() != 1 || lone.front() == told) {
    return {};
  }
  return joined("; ", printable(lone.front()), " belongs to no image");
}

void forbid_packing(std::vector<named_finding>& group) {
  for (named_finding& found : group) {
    found.text += ": nothing can be packed";
  }
}

/// Why an image is certainly none; empty if it may be one. is_file is set for a regular file.
std::string leftover_text(const folder_check& check, const folder_reading& reading,
                          std::size_t position,
                          const std::unordered_map<std::int32_t, std::string_view>& paired,
                          bool& is_file) {
  const input_entry dvi = reading.dvis[position];
  const bool is_paired = has_any_header(reading.headers, position);
  const auto other = paired.find(dvi.index);
  is_file = false;
  if (is_hidden(dvi.name) && other != paired.end()) {
    return "a hidden file, which is taken for an image by its name";
  }
  if (is_paired) {
    return {};
  }
  const std::string_view type = type_of_file(join_path(check.scope.folder, dvi.name));
  if (!type.empty()) {
    return joined(type, ", which is taken for an image by its name");
  }
  is_file = true;
  if (other == paired.end()) {
    return {};
  }
  return joined("the image has no header, and the index ", dvi.index, " is that of ",
                printable(other->second));
}

/// The reading without some of its images.
folder_reading without(const folder_reading& reading, const std::vector<bool>& dropped) {
  folder_reading rest{.headers = {.all_marked = reading.headers.all_marked}};
  for (std::size_t i = 0; i < dropped.size(); ++i) {
    if (!dropped[i]) {
      rest.dvis.add(reading.dvis[i]);
      rest.headers.marked.push_back(reading.headers.marked[i]);
      rest.headers.plain.push_back(reading.headers.plain[i]);
    }
  }
  rest.headers.all_marked =
      std::ranges::find(rest.headers.marked, false) == rest.headers.marked.end();
  return rest;
}

/// A name without what people and programs change: leading underscores, and capitals.
std::string plain_name(std::string_view name) {
  const std::size_t begin = std::min(name.find_first_not_of(header_mark), name.size());
  std::string plain(name.substr(begin));
  std::ranges::transform(plain, plain.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return plain;
}

/// The files of a folder by their plain names.
using plain_names = std::vector<std::pair<std::string, std::string_view>>;

plain_names sorted_plain_names(const folder_names& folder) {
  plain_names sorted;
  for (const std::string_view name : folder.names) {
    sorted.emplace_back(plain_name(name), name);
  }
  std::ranges::sort(sorted);
  return sorted;
}

/// A file whose name is nearly that of the header: net.H, net.h.orig. Empty without one.
std::string_view near_header(const plain_names& files, std::string_view stem) {
  const std::string wanted = plain_name(header_name(stem));
  const auto found = std::ranges::lower_bound(files, wanted, {}, &plain_names::value_type::first);
  return found != files.end() && found->first.starts_with(wanted) ? found->second
                                                                  : std::string_view();
}

/// Whether the name of a header is the beginning that those of a network have, and an index.
bool is_in_series(std::string_view name, std::string_view beginning) {
  if (!name.starts_with(beginning)) {
    return false;
  }
  name.remove_prefix(beginning.size());
  const std::size_t digits = std::min(name.find_first_not_of("0123456789"), name.size());
  return digits != 0 && name.substr(digits) == header_ending;
}

/// How many images have a header.
std::string pairs_text(const folder_reading& reading, std::size_t paired) {
  const std::size_t images = reading.dvis.size();
  if (images == 1) {
    return "the image has no header";
  }
  if (paired == 0) {
    return joined("none of the ", images, " images has a header");
  }
  return joined(paired, " of ", images, " images ", paired == 1 ? "has" : "have", " a header ",
                reading.headers.all_marked ? header_mark : "", "NAME", header_ending);
}

/// Tells what is wrong about the header of an image, which is missing. If no image has one, nothing
/// tells whether their names begin with an underscore.
named_finding missing_header(const folder_reading& reading, std::size_t position,
                             const plain_names& files, std::size_t paired) {
  const std::string_view image = reading.dvis[position].name;
  const std::string_view stem = get_file_stem(image);
  const std::string_view near = near_header(files, stem);
  const bool is_marked = paired == 0 ? near.starts_with(header_mark) : reading.headers.all_marked;
  const std::string wanted = is_marked ? marked_header_name(stem) : header_name(stem);
  named_finding found{.kind = kind_of("unpaired-image"),
                      .name = paired == 0 ? std::string(image) : wanted,
                      .text = joined(pairs_text(reading, paired), "; ")};
  if (!near.empty()) {
    found.name = near;
    append_pieces(found.text, "that of ", printable(image), " must be named ", printable(wanted),
                  ", not ", printable(near));
  } else if (paired == 0) {
    append_pieces(found.text, printable(wanted), " or ", printable(marked_header_name(stem)),
                  " is missing");
  } else {
    append_pieces(found.text, printable(wanted), " is missing");
  }
  return found;
}

}  // namespace

std::size_t drop_leftovers(const folder_check& check, folder_reading& reading) {
  const auto paired = paired_images(reading);
  std::vector<named_finding> group;
  std::vector<bool> dropped(reading.dvis.size());
  std::size_t files = 0;
  for (std::size_t i = 0; i < reading.dvis.size(); ++i) {
    bool is_file = false;
    const std::string text = leftover_text(check, reading, i, paired, is_file);
    if (!text.empty()) {
      dropped[i] = true;
      files += is_file ? 1 : 0;
      group.push_back({.kind = kind_of("unpaired-image"),
                       .name = std::string(reading.dvis[i].name),
                       .text = text});
    }
  }
  if (group.empty()) {
    return 0;
  }
  reading = without(reading, dropped);
  if (files == 1 && group.size() == 1) {
    group.front().text += lone_header_text(check, reading, {});
  }
  forbid_packing(group);
  report_group(check, group);
  return files;
}

bool check_pairs(const folder_check& check, folder_reading& reading) {
  header_presence& headers = reading.headers;
  const auto marked = static_cast<std::size_t>(std::ranges::count(headers.marked, true));
  const auto plain = static_cast<std::size_t>(std::ranges::count(headers.plain, true));
  const std::size_t images = reading.dvis.size();
  headers.all_marked = marked == images || (plain != images && marked >= plain);
  if (std::max(marked, plain) == images) {
    return true;
  }
  const plain_names files = sorted_plain_names(check.names);
  std::vector<named_finding> group;
  for (std::size_t i = 0; i < images; ++i) {
    if (!reading.has_header(i)) {
      group.push_back(missing_header(reading, i, files, std::max(marked, plain)));
    }
  }
  if (group.size() == 1) {
    group.front().text += lone_header_text(check, reading, group.front().name);
  }
  forbid_packing(group);
  report_group(check, group);
  return false;
}

void check_headers(const folder_check& check, const folder_reading& reading) {
  const std::string_view stem = common_stem(reading.dvis);
  const std::string series = joined(reading.headers.all_marked ? header_mark : "", stem);
  std::vector<named_finding> group;
  for (const std::string& name : lone_headers(check, reading)) {
    if (!stem.empty() && is_in_series(name, series)) {
      group.push_back({.kind = kind_of("unpaired-header"),
                       .name = name,
                       .text = "the header belongs to no image: the image is missing, or the "
                               "header is left over"});
    }
  }
  report_group(check, group);
}

}  // namespace morvane::cli

#include "cli/lint/mistaken_folder.h"

#include <algorithm>
#include <array>
#include <vector>

#include "cli/lint/mistakes.h"

namespace morvane::test {

namespace {

constexpr std::array port_keywords{"HMB_input", "HMB_output"};
constexpr std::array<const char*, 9> names{"a",    "data", "in",  "in_1", "x_in",
                                           "mask", "W",    "net", "state"};

/// The lines of a port with all of its macros or some, in any order.
void add_port(header_lines& header, const std::string& name, random_numbers& random,
              bool is_whole) {
  add_line(header,
           "/* " + header.dag + " " + port_keywords.at(below(random, 2)) + " " + name + " */");
  std::vector<std::string> suffixes(port_suffixes.begin(), port_suffixes.end());
  std::ranges::shuffle(suffixes, random);
  suffixes.resize(is_whole ? suffixes.size() : 1 + below(random, suffixes.size()));
  for (const std::string& suffix : suffixes) {
    add_line(header, definition(header.dag + "_" + name + suffix, good_value(suffix, random)));
  }
}

void add_block(header_lines& header, const std::string& name, random_numbers& random,
               bool is_clean) {
  switch (below(random, 4)) {
    case 0:
      add_line(header, "/* $v" + name + " */");
      add_line(header, definition("v" + name + "_boffset", good_value("_boffset", random)));
      add_line(header, definition("v" + name + "_bsize", good_value("_bsize", random)));
      return;
    case 1:
      add_line(header, "/* " + header.dag + " SMB_input s" + name + " */");
      add_line(header, definition(header.dag + "_s" + name + "_vbase_byte_offset",
                                  good_value("_vbase_byte_offset", random)));
      return;
    default:
      add_port(header, name, random, is_clean || one_in(random, 2));
  }
}

/// A header without mistakes, if the image has the size. Block names repeat only in a folder that
/// is not clean.
header_lines make_header(const std::string& dag, std::size_t image_size, random_numbers& random,
                         bool is_clean) {
  header_lines header{.dag = dag};
  const bool is_guarded = one_in(random, 3);
  if (is_guarded) {
    add_line(header, "#ifndef __HEADER_H__");
    add_line(header, "#define __HEADER_H__");
  }
  add_line(header, "#define OTHER 1");
  const std::size_t start = 4096 * below(random, 1000);
  add_line(header, definition(dag + "_DAG_NAME", "\"" + dag + "\""));
  add_line(header, definition(dag + "_image_start", std::to_string(start)));
  add_line(header, definition(dag + "_image_size", std::to_string(image_size)));
  add_line(header,
           definition(dag + "_dagbin_start",
                      std::to_string(start + below(random, std::max<std::size_t>(image_size, 1)))));
  std::vector<std::string> free_names(names.begin(), names.end());
  std::ranges::shuffle(free_names, random);
  for (std::size_t blocks = below(random, 5); blocks > 0; --blocks) {
    if (one_in(random, 2)) {
      add_line(header, "");
    }
    // Outputs of one DAG and inputs of the next do not agree, so a clean folder's names differ.
    const std::string name = is_clean ? free_names.back() + "_" + dag : names.at(below(random, 9));
    free_names.pop_back();
    add_block(header, name, random, is_clean);
  }
  if (is_guarded) {
    add_line(header, "#endif");
  }
  return header;
}

/// Exchanges two headers, which may be the same, or copies one over the other.
void exchange_headers(mistaken_folder& folder, random_numbers& random) {
  std::vector<std::string*> headers;
  for (auto& [name, content] : folder.files) {
    if (name.ends_with(".h")) {
      headers.push_back(&content);
    }
  }
  std::ranges::shuffle(headers, random);
  if (one_in(random, 2)) {
    std::swap(*headers.front(), *headers.back());
  } else {
    *headers.front() = *headers.back();
  }
}

void drop_last_image(mistaken_folder& folder) {
  std::string last;
  for (const auto& [name, content] : folder.files) {
    last = name.ends_with(".dvi") ? name : last;
  }
  folder.files.erase(last);
}

/// Mistakes in the names of the files.
void mistake_names(mistaken_folder& folder, random_numbers& random) {
  const auto any = std::next(folder.files.begin(),
                             static_cast<std::ptrdiff_t>(below(random, folder.files.size())));
  const auto [name, content] = *any;
  folder.files.erase(any);
  const std::string extension = name.substr(name.rfind('.'));
  switch (below(random, 10)) {
    case 9:
      folder.files[name] = content;
      return drop_last_image(folder);
    case 8:
    case 7:
      folder.files[name] = content;
      return exchange_headers(folder, random);
    case 0:
      folder.files["net_split_" + extension] = content;
      return;
    case 1:
      folder.files[std::string(130, 'n') + extension] = content;
      return;
    case 2:
      folder.files["net" + extension] = content;
      return;
    case 3:
      folder.link = name;
      folder.target = one_in(random, 2) ? "nowhere" : "/dev/null";
      return;
    case 4:
      folder.folder = name;
      return;
    case 5:
      folder.files["net_split_1" + extension] = content;
      return;
    default:
      return;  // it is missing
  }
}

}  // namespace

mistaken_folder make_folder(random_numbers& random, bool is_clean) {
  mistaken_folder folder;
  const std::string mark = one_in(random, 2) ? "_" : "";
  const bool are_named_as_files = one_in(random, 2);
  const std::size_t dags = 1 + below(random, 3);
  const bool is_huge = !is_clean && dags == 3 && one_in(random, 30);
  for (std::size_t i = 0; i < dags; ++i) {
    // Now and then the first two have the same index.
    const std::string number = std::to_string(i);
    const std::string file = i == 0 && dags > 1 && !is_clean && one_in(random, 20)
                                 ? "net_first_split_1"
                                 : "net_split_" + number;
    const std::string dag = !is_clean && one_in(random, 8)
                                ? "net"
                                : (are_named_as_files ? "net_split_" : "net_") + number;
    const std::size_t image_size = 1 + below(random, 200);
    const bool is_empty = !is_clean && one_in(random, 40);
    const std::size_t claimed_size = is_empty ? 0 : is_huge ? 0x7FFFFFFF : image_size;
    header_lines header = make_header(dag, claimed_size, random, is_clean);
    for (std::size_t left = is_clean ? 0 : 1 + below(random, 8); left > 0; --left) {
      make_mistake(header, random);
    }
    const bool is_other_image = !is_clean && one_in(random, 12);
    folder.files[mark + file + ".h"] = text_of(header, random);
    folder.files[file + ".dvi"] = std::string(is_other_image ? below(random, 200)
                                              : is_empty     ? 0
                                                             : image_size,
                                              'i');
  }
  if (!is_clean && one_in(random, 4)) {
    mistake_names(folder, random);
  }
  return folder;
}

}  // namespace morvane::test

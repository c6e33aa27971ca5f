// The input is a list of file names, one per line. The files are made in a folder, and the
// operations that find, order and pair the DVIs run on it.

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "discovery/file_names.h"
#include "discovery/input_files.h"
#include "fuzz/fuzz_target.h"
#include "harness/scratch_folder.h"
#include "harness/silence.h"

namespace morvane::test {
namespace {

constexpr std::size_t most_names = 48;

std::set<std::string> names_of(std::string_view list) {
  std::set<std::string> names;
  while (!list.empty() && names.size() < most_names) {
    const std::size_t end = std::min(list.find('\n'), list.size());
    if (end > 0) {
      names.emplace(list.substr(0, end));
    }
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return names;
}

void check_name(const std::string& name) {
  const std::string type = get_file_type(name, true);
  const std::string_view stem = get_file_stem(name);
  const bool typed = name.size() <= 127 && name.find('.') != std::string::npos;
  require(typed ? std::string(stem) + "." + type == name : type.empty() && stem.empty(),
          "the stem, a dot and the type make up the name");
  const std::string lower = get_file_type(name, false);
  require(lower.size() == type.size() &&
              std::ranges::none_of(lower, [](char c) { return c >= 'A' && c <= 'Z'; }),
          "a type has no upper case");
  std::int32_t index = -7;
  const int status = parse_file_index(name, index);
  require(status == 0 || index == -7, "a bad name sets no index");
  require(status != 0 || name.find("_split_") != std::string::npos || index == 0,
          "a name without the mark has the index 0");
}

/// Makes the files whose names the system accepts. Each gives its own name as the name of its DAG.
std::vector<std::string> make_files(const scratch_folder& folder,
                                    const std::set<std::string>& names) {
  std::vector<std::string> made;
  for (const std::string& name : names) {
    const std::string path = folder.path() + "/" + name;
    const bool is_name = name.find('/') == std::string::npos && name != "." && name != "..";
    const int file =
        is_name ? ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600) : -1;
    if (file >= 0) {
      const std::string text = "#define x_DAG_NAME " + name.substr(0, 8) + "\n";
      require(::write(file, text.data(), text.size()) > 0, "the scratch folder takes files");
      ::close(file);
      made.push_back(path);
    }
  }
  return made;
}

void check_pairs(const input_list& dvis, const input_list& headers) {
  require(headers.size() <= dvis.size(), "every header has its DVI");
  for (std::size_t i = 0; i < headers.size(); ++i) {
    const std::string stem(get_file_stem(dvis[i].name));
    require(headers[i].index == dvis[i].index, "a header has the index of its DVI");
    require(headers[i].name == stem + ".h" || headers[i].name == "_" + stem + ".h",
            "a header has the name of its DVI");
  }
}

void check_folder(const std::string& folder) {
  input_list dvis;
  const std::int32_t count = list_input_files(folder, "dvi", dvis);
  require(count == 0 || static_cast<std::size_t>(count) == dvis.size(), "the count is the list's");
  for (std::size_t i = 1; i < dvis.size(); ++i) {
    require(count == 0 || dvis[i - 1].index <= dvis[i].index,
            "the DVIs are in the order of their indices");
  }
  for (const input_entry dvi : dvis) {
    std::int32_t index = 0;
    require(get_file_type(dvi.name, false) == "dvi" && parse_file_index(dvi.name, index) == 0 &&
                index == dvi.index,
            "a DVI is listed with the index of its name");
  }
  input_list headers;
  require(static_cast<std::size_t>(pair_header_files(folder, dvis, headers)) == headers.size(),
          "the count is the list's");
  check_pairs(dvis, headers);
  check_duplicate_dag_names(folder, headers);
}

}  // namespace
}  // namespace morvane::test

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane::test;
  static const silence silent;
  static const scratch_folder scratch;
  const std::set<std::string> names = names_of(text_of_input(data, size));
  std::ranges::for_each(names, check_name);
  const std::vector<std::string> made = make_files(scratch, names);
  check_folder(scratch.path());
  for (const std::string& path : made) {
    ::unlink(path.c_str());
  }
  return 0;
}

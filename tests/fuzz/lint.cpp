// The first line of the input names files, divided by blanks; the rest is the text of every header
// among them. The folder is linted, and packed as morvane_gen does it.

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <vector>

#include "cli/lint/lint_folder.h"
#include "cli/pack/packed_folder.h"
#include "fuzz/fuzz_target.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

using cli::severity;

constexpr std::size_t max_files = 12;

bool write_bytes_to(const std::string& path, std::string_view content) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (file < 0) {
    return false;
  }
  const bool is_written =
      ::write(file, content.data(), content.size()) == static_cast<ssize_t>(content.size());
  ::close(file);
  return is_written;
}

/// Makes the files whose names the system accepts, and two that make a folder worth packing.
std::vector<std::string> make_files(const std::string& folder, std::string_view names,
                                    std::string_view header) {
  std::string all(names);
  all += " net_split_0.dvi _net_split_0.h";
  std::vector<std::string> made;
  for (std::size_t begin = 0; begin < all.size() && made.size() < max_files;) {
    const std::size_t end = std::min(all.find(' ', begin), all.size());
    const std::string name = all.substr(begin, end - begin);
    const bool is_name = !name.empty() && name.find('/') == std::string::npos && name != "." &&
                         name != ".." && name.find('\0') == std::string::npos;
    const std::string path = folder + "/" + name;
    if (is_name && write_bytes_to(path, name.ends_with(".h") ? header : "image")) {
      made.push_back(path);
    }
    begin = end + 1;
  }
  return made;
}

/// Checks the findings' order and places. Returns whether there is an error.
bool lint(const std::string& folder, bool vproc, std::string_view header) {
  const auto lines = static_cast<std::size_t>(std::ranges::count(header, '\n')) + 1;
  bool has_error = false;
  std::string file;
  std::pair<std::uint32_t, std::uint32_t> last;
  unsigned returns = 0;
  const int status = cli::lint_folder(
      {.folder = folder, .vproc = vproc, .notes = true},
      [&](const cli::finding& found) {
        const std::pair place(found.place.line, found.place.column);
        returns += found.file == file && place < last ? 1 : 0;
        require(returns <= 1,
                "findings about a header come in the order of their places, and then "
                "those about what it has to do with others");
        require(place.first >= 1 && place.first <= lines && place.second >= 1 &&
                    place.second <= header.size() + 1,
                "every place is inside its file");
        require(!found.text.empty(), "every finding says something");
        file = found.file;
        last = place;
        has_error = has_error || cli::level_of(found) == severity::error;
      },
      [](std::size_t, std::size_t) {}, nullptr);
  require(status == 0, "the folder can be read");
  return has_error;
}

}  // namespace
}  // namespace morvane::test

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane::test;
  static const scratch_folder scratch;
  scratch.make_folder("in");
  const std::string_view input = text_of_input(data, size);
  const std::size_t end = std::min(input.find('\n'), input.size());
  const std::string_view header = input.substr(std::min(end + 1, input.size()));
  const std::string folder = scratch.path("in");
  const std::vector<std::string> made = make_files(folder, input.substr(0, end), header);
  for (const bool vproc : {false, true}) {
    const bool has_error = lint(folder, vproc, header);
    const bool is_packed = pack_folder(folder, vproc, scratch.path("net.bin"));
    require(has_error || (is_packed && is_sound(scratch.read("net.bin"), vproc)),
            "lint has an error for what cannot be packed or is not sound");
  }
  for (const std::string& path : made) {
    ::unlink(path.c_str());
  }
  return 0;
}

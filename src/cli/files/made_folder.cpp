#include "cli/files/made_folder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace morvane::cli {

namespace {

/// Makes each folder of a path that is missing, until one cannot be made. Returns those it
/// made, the innermost first.
std::vector<std::string> make_folders(const std::string& path) {
  constexpr mode_t as_the_user_wants = 0777;
  std::vector<std::string> made;
  bool goes_on = true;
  for (std::size_t end = 0; goes_on && end != path.size();) {
    end = std::min(path.find('/', end + 1), path.size());
    const std::string folder = path.substr(0, end);
    if (::mkdir(folder.c_str(), as_the_user_wants) == 0) {
      made.insert(made.begin(), folder);
    } else {
      goes_on = errno == EEXIST;
    }
  }
  return made;
}

}  // namespace

made_folder::made_folder(const std::string& path) : handle_(open_folder(path)) {
  if (!handle_.is_open() && errno == ENOENT) {
    made_ = make_folders(path);
    handle_ = open_folder(path);
  }
}

made_folder::~made_folder() {
  for (const std::string& folder : made_) {
    ::rmdir(folder.c_str());
  }
}

}  // namespace morvane::cli

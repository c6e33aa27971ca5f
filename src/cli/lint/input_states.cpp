#include "cli/lint/input_states.h"

#include <cerrno>

#include "cli/output/console.h"
#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

bool is_same_time(const timespec& a, const timespec& b) {
  return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

bool is_same(const file_state& a, const file_state& b) {
  return a.identity == b.identity && a.size == b.size && is_same_time(a.modified, b.modified) &&
         is_same_time(a.changed, b.changed) && a.error == b.error;
}

int type_error(const struct stat& status) {
  return S_ISREG(status.st_mode) ? 0 : S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
}

file_state state_in(const struct stat& status) {
  return {.identity = identity_in(status),
          .size = status.st_size,
          .modified = status.st_mtim,
          .changed = status.st_ctim,
          .error = type_error(status)};
}

}  // namespace

readable_file open_input(const std::string& path, file_state& state) {
  readable_file file = open_to_read(path);
  const std::optional<struct stat> status = status_of(file.handle);
  state = status ? state_in(*status) : file_state{.error = errno};
  return file;
}

std::string unreadable_text(std::string_view what, int error) {
  const bool is_no_file = error == EINVAL || error == ENXIO;  // ENXIO: a socket cannot be opened
  return joined("the ", what,
                " cannot be read: ", is_no_file ? std::string(no_regular_file) : reason_of(error));
}

std::vector<std::string> input_paths(const pack_inputs& inputs) {
  std::vector<std::string> paths;
  paths.reserve(2 * inputs.dvis.size());
  for (std::size_t i = 0; i < inputs.dvis.size(); ++i) {
    paths.push_back(join_path(inputs.folder, inputs.dvis[i].name));
    paths.push_back(join_path(inputs.folder, inputs.headers[i].name));
  }
  return paths;
}

std::string changed_file(const std::vector<std::string>& paths, const file_states& before) {
  for (std::size_t i = 0; i < paths.size(); ++i) {
    struct stat status {};
    if (::stat(paths[i].c_str(), &status) != 0 || !is_same(state_in(status), before[i])) {
      return paths[i];
    }
  }
  return {};
}

}  // namespace morvane::cli

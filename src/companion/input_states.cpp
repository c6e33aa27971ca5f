#include "companion/input_states.h"

#include <cerrno>

namespace morvane::companion {

namespace {

bool is_same_time(const timespec& a, const timespec& b) {
  return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

bool is_same(const file_state& a, const file_state& b) {
  return a.identity == b.identity && a.size == b.size && is_same_time(a.modified, b.modified) &&
         is_same_time(a.changed, b.changed);
}

/// Returns 0 or an errno.
int look_at(const std::string& path, file_state& state) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    return errno;
  }
  state = {.identity = identity_in(status),
           .size = status.st_size,
           .modified = status.st_mtim,
           .changed = status.st_ctim};
  return S_ISREG(status.st_mode) ? 0 : EINVAL;
}

}  // namespace

std::vector<std::string> input_paths(const pack_inputs& inputs) {
  std::vector<std::string> paths;
  paths.reserve(2 * inputs.dvis.size());
  for (std::size_t i = 0; i < inputs.dvis.size(); ++i) {
    paths.push_back(join_path(inputs.folder, inputs.dvis[i].name));
    paths.push_back(join_path(inputs.folder, inputs.headers[i].name));
  }
  return paths;
}

file_states states_of(const std::vector<std::string>& paths) {
  file_states all;
  all.states.reserve(paths.size());
  for (const std::string& path : paths) {
    file_state state;
    all.error = look_at(path, state);
    if (all.error != 0) {
      all.failed = path;
      break;
    }
    all.states.push_back(state);
  }
  return all;
}

std::string changed_file(const std::vector<std::string>& paths, const file_states& before) {
  for (std::size_t i = 0; i < paths.size(); ++i) {
    file_state now;
    if (look_at(paths[i], now) != 0 || !is_same(now, before.states[i])) {
      return paths[i];
    }
  }
  return {};
}

}  // namespace morvane::companion

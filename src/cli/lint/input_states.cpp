#include "cli/lint/input_states.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include "cli/output/console.h"
#include "cli/output/printable_text.h"
#include "discovery/file_names.h"
#include "discovery/input_files.h"
#include "format/file_naming.h"
#include "io/output_file.h"

namespace morvane::cli {

namespace {

bool is_same_time(const timespec& a, const timespec& b) {
  return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

bool is_same(const file_state& a, const file_state& b) {
  return a.identity == b.identity && a.size == b.size && is_same_time(a.modified, b.modified) &&
         is_same_time(a.changed, b.changed) && a.error == b.error;
}

/// What is no file to pack, although it can have the name of one.
struct unfit_type {
  mode_t type;
  int error;
  std::string_view name;
};

constexpr std::array<unfit_type, 5> unfit_types{{{S_IFDIR, EISDIR, "a folder"},
                                                 {S_IFIFO, ESPIPE, "a pipe"},
                                                 {S_IFCHR, ENOTBLK, "a device"},
                                                 {S_IFBLK, ENOTBLK, "a device"},
                                                 {S_IFSOCK, ENXIO, "a socket"}}};

/// What kind of such a thing a status is of; null for a file.
const unfit_type* unfit_in(const struct stat& status) {
  const auto* const unfit =
      std::ranges::find(unfit_types, status.st_mode & S_IFMT, &unfit_type::type);
  return unfit == unfit_types.end() ? nullptr : unfit;
}

int type_error(const struct stat& status) {
  const unfit_type* const unfit = unfit_in(status);
  return unfit == nullptr ? 0 : unfit->error;
}

/// Whether a name may be that of an image or a header.
bool is_packed_type(std::string_view name) {
  const std::string type = lower_case_type(name);
  return type == dvi_type || type == "h";
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

bool is_in_folder(const std::string& folder, const atomic_replacement& file) {
  const std::optional<struct stat> status = status_of(open_folder(folder));
  const bool is_there = status && file.folder() == identity_in(*status);
  if (is_there && is_packed_type(file.name())) {
    return true;
  }
  const folder_names entries = read_names(folder);
  return file.replaced() && std::ranges::any_of(entries.names, [&](std::string_view name) {
           return is_packed_type(name) && identity_at(join_path(folder, name)) == file.replaced();
         });
}

std::string_view type_of_file(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    return errno == ENOENT || errno == ELOOP ? "a link that leads nowhere" : "";
  }
  const unfit_type* const unfit = unfit_in(status);
  return unfit == nullptr ? std::string_view() : unfit->name;
}

std::string unreadable_text(std::string_view what, int error) {
  const auto* const unfit = std::ranges::find(unfit_types, error, &unfit_type::error);
  return joined("the ", what, " cannot be read: ",
                unfit == unfit_types.end() ? reason_of(error) : joined("it is ", unfit->name));
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

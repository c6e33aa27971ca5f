#include "companion/replacement_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <span>

namespace morvane::companion {

namespace {

/// The file that a path means after its symbolic links. The last link may lead to a missing file.
std::filesystem::path target_of(const std::string& path) {
  constexpr int most_links = 40;  // what the system follows
  std::filesystem::path target(path);
  std::error_code error;
  for (int i = 0; i < most_links && std::filesystem::is_symlink(target, error); ++i) {
    target = target.parent_path() / std::filesystem::read_symlink(target, error);
  }
  return target;
}

/// Sets the permissions of a regular file, nothing for a missing one. Returns 0 or an errno.
int permissions_at(const std::string& path, std::optional<mode_t>& permissions) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    return errno == ENOENT ? 0 : errno;
  }
  if (!S_ISREG(status.st_mode)) {
    return S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
  }
  constexpr mode_t all_permissions = 07777;
  permissions = status.st_mode & all_permissions;
  return 0;
}

}  // namespace

int replacement_file::create(const std::string& path) {
  const std::filesystem::path target = target_of(path);
  std::optional<mode_t> permissions;
  if (const int error = permissions_at(target.string(), permissions); error != 0) {
    return error;
  }
  folder_path_ = target.has_parent_path() ? target.parent_path().string() : ".";
  folder_ = open_folder(folder_path_);
  if (!folder_.is_open()) {
    return errno;
  }
  file_.emplace(folder_);
  if (const int error = file_->create(target.filename().string()); error != 0) {
    return error;
  }
  return permissions && ::fchmod(descriptor(), *permissions) != 0 ? errno : 0;
}

std::string replacement_file::path() const {
  return join_path(folder_path_, file_->temporary_name());
}

int replacement_file::put_in_place(bool sync) {
  if (const int error = file_->put_in_place(true); error != 0 || !sync) {
    return error;
  }
  const file_handle folder = open_at(AT_FDCWD, folder_path_, O_RDONLY | O_DIRECTORY);
  return folder.is_open() ? sync_file(folder.descriptor()) : errno;
}

int replace_file(const std::string& path, std::string_view content) {
  replacement_file file;
  if (const int error = file.create(path); error != 0) {
    return error;
  }
  const auto bytes = std::as_bytes(std::span(content));
  return write_bytes(file.descriptor(), bytes) < bytes.size() ? errno : file.put_in_place(false);
}

int sync_file(int descriptor) {
  // EINVAL: the file system has nothing to synchronise.
  return ::fsync(descriptor) == 0 || errno == EINVAL ? 0 : errno;
}

}  // namespace morvane::companion

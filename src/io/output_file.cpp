#include "io/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace morvane {

namespace {

file_handle create_new(const file_handle& folder, const std::string& name) {
  return open_at(folder.descriptor(), name, O_WRONLY | O_CREAT | O_EXCL);
}

/// Opens an existing file, but no symbolic link. Does not wait for the reader of a pipe.
file_handle open_existing(const file_handle& folder, const std::string& name, int flags) {
  return open_at(folder.descriptor(), name, O_WRONLY | O_NOFOLLOW | O_NONBLOCK | flags);
}

bool is_regular_with_one_name(const struct stat& status) {
  return S_ISREG(status.st_mode) && status.st_nlink == 1;
}

/// For a file that cannot be removed, because its folder is not writable.
file_handle empty_existing(const file_handle& folder, const std::string& name,
                           const file_identity& kept) {
  file_handle file = open_existing(folder, name, 0);
  const std::optional<struct stat> status = status_of(file);
  const bool usable = status && is_regular_with_one_name(*status) && identity_in(*status) != kept &&
                      empty_file(file);
  return usable ? std::move(file) : file_handle();
}

}  // namespace

file_handle open_folder(const std::string& path) {
  return open_at(AT_FDCWD, path, O_PATH | O_DIRECTORY);
}

file_handle create_file(const file_handle& folder, const std::string& name,
                        const file_identity& kept) {
  file_handle file = create_new(folder, name);
  if (file.is_open() || errno != EEXIST) {
    return file;
  }
  return remove_entry(folder, name, kept, false) ? create_new(folder, name)
                                                 : empty_existing(folder, name, kept);
}

file_handle reopen_file(const file_handle& folder, const std::string& name,
                        const created_file& created) {
  file_handle file = open_existing(folder, name, O_APPEND);
  const std::optional<struct stat> status = status_of(file);
  // A new file may get the inode of a deleted one, but is unlikely to have its size.
  const bool is_the_same = status && is_regular_with_one_name(*status) &&
                           identity_in(*status) == created.identity &&
                           static_cast<std::uint64_t>(status->st_size) == created.size;
  return is_the_same ? std::move(file) : file_handle();
}

bool remove_entry(const file_handle& folder, const std::string& name, const file_identity& kept,
                  bool with_folders) {
  struct stat status {};
  if (::fstatat(folder.descriptor(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0 ||
      identity_in(status) == kept) {
    return false;
  }
  const int flags = with_folders && S_ISDIR(status.st_mode) ? AT_REMOVEDIR : 0;
  return ::unlinkat(folder.descriptor(), name.c_str(), flags) == 0;
}

}  // namespace morvane

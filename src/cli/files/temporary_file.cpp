#include "cli/files/temporary_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <random>
#include <string_view>

#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

/// The newest temporary name. Only by this can the handler of a signal find the names.
std::atomic<temporary_name*> newest_name{nullptr};
static_assert(std::atomic<temporary_name*>::is_always_lock_free);

/// Some file systems tell only when a descriptor is closed that they lost what was written.
int close_error(const file_handle& file) {
  const int copy = ::dup(file.descriptor());
  return copy < 0 || ::close(copy) != 0 ? errno : 0;
}

/// A path that leads to an open file, also to one without a name.
std::string path_of(const file_handle& file) {
  return joined("/proc/self/fd/", file.descriptor());
}

/// Renames a file unless the new name is in use. Where the file system cannot do that in one step,
/// a second name is made, and the owner of the first one removes that.
int rename_to_free_name(int folder, const char* from, const char* to) {
  if (::renameat2(folder, from, folder, to, RENAME_NOREPLACE) == 0) {
    return 0;
  }
  const bool is_unknown = errno == EINVAL || errno == ENOSYS;
  return is_unknown && ::linkat(folder, from, folder, to, 0) == 0 ? 0 : errno;
}

}  // namespace

temporary_name::temporary_name(int folder) : folder_(folder), older_(newest_name.load()) {
  constexpr std::string_view beginning = ".morvane-";
  constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz234567";
  std::random_device random;
  std::ranges::generate(text_, [&] { return letters[random() % letters.size()]; });
  std::ranges::copy(beginning, text_.begin());
  text_.back() = '\0';
  newest_name = this;
}

temporary_name::~temporary_name() {
  ::unlinkat(folder_, text(), 0);
  std::atomic<temporary_name*>* link = &newest_name;
  while (*link != this) {
    link = &link->load()->older_;
  }
  link->store(older_);
}

void remove_temporary_files() {
  for (const temporary_name* name = newest_name; name != nullptr; name = name->older_) {
    ::unlinkat(name->folder_, name->text(), 0);
  }
}

int temporary_file::create() {
  const int folder = folder_.descriptor();
  file_ = open_at(folder, ".", O_RDWR | O_TMPFILE);
  // Without /proc the file could not get its name.
  if (file_.is_open() && ::access(path_of(file_).c_str(), F_OK) == 0) {
    return 0;
  }
  temporary_.emplace(folder);
  file_ = open_at(folder, temporary_->text(), O_RDWR | O_CREAT | O_EXCL);
  return file_.is_open() ? 0 : errno;
}

int temporary_file::link_as(const char* name) const {
  return ::linkat(AT_FDCWD, path_of(file_).c_str(), folder_.descriptor(), name,
                  AT_SYMLINK_FOLLOW) == 0
             ? 0
             : errno;
}

int temporary_file::put_in_place(const std::string& name, bool replace) {
  if (const int error = close_error(file_); error != 0) {
    return error;
  }
  const int folder = folder_.descriptor();
  if (!temporary_) {
    const int error = link_as(name.c_str());
    if (error != EEXIST || !replace) {
      return error;
    }
    // Only a rename replaces a file, and it needs a name to start from. A program that is killed
    // between the two calls leaves that name; there is no way without one.
    temporary_.emplace(folder);
    if (const int other_error = link_as(temporary_->text()); other_error != 0) {
      return other_error;
    }
  }
  if (!replace) {
    return rename_to_free_name(folder, temporary_->text(), name.c_str());
  }
  return ::renameat(folder, temporary_->text(), folder, name.c_str()) == 0 ? 0 : errno;
}

}  // namespace morvane::cli

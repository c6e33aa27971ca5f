#include "companion/emerging_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "companion/printable_text.h"

namespace morvane::companion {

namespace {

/// Some file systems tell only when a descriptor is closed that they lost what was written.
int close_error(const file_handle& file) {
  const int copy = ::dup(file.descriptor());
  return copy < 0 || ::close(copy) != 0 ? errno : 0;
}

/// Renames a file unless the new name is in use. Where the file system cannot do that in one step,
/// a second name is made and the first one removed.
int rename_to_free_name(int folder, const char* from, const char* to) {
  if (::renameat2(folder, from, folder, to, RENAME_NOREPLACE) == 0) {
    return 0;
  }
  if (errno != EINVAL && errno != ENOSYS) {
    return errno;
  }
  const bool is_linked = ::linkat(folder, from, folder, to, 0) == 0;
  return is_linked && ::unlinkat(folder, from, 0) == 0 ? 0 : errno;
}

}  // namespace

emerging_file::~emerging_file() {
  if (!temporary_name_.empty()) {
    ::unlinkat(folder_.descriptor(), temporary_name_.c_str(), 0);
  }
}

int emerging_file::create(const std::string& name) {
  constexpr int most_attempts = 100;
  for (int attempt = 0; attempt < most_attempts; ++attempt) {
    const std::string temporary = joined(".", name, ".tmp", ::getpid(), ".", attempt);
    file_ = open_at(folder_.descriptor(), temporary, O_WRONLY | O_CREAT | O_EXCL);
    if (file_.is_open()) {
      name_ = name;
      temporary_name_ = temporary;
      return 0;
    }
    if (errno != EEXIST) {
      return errno;
    }
  }
  return EEXIST;
}

int emerging_file::put_in_place(bool replace) {
  if (const int error = close_error(file_); error != 0) {
    return error;
  }
  const int folder = folder_.descriptor();
  int error = 0;
  if (!replace) {
    error = rename_to_free_name(folder, temporary_name_.c_str(), name_.c_str());
  } else if (::renameat(folder, temporary_name_.c_str(), folder, name_.c_str()) != 0) {
    error = errno;
  }
  if (error == 0) {
    temporary_name_.clear();
  }
  return error;
}

}  // namespace morvane::companion

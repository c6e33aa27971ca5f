#include "cli/files/atomic_replacement.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "cli/files/blocked_signals.h"
#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

/// Follows symbolic links to the file that a path means. The last link may lead to a missing file.
/// Returns 0 or an errno.
int follow_links(std::filesystem::path& target) {
  namespace fs = std::filesystem;
  constexpr int max_links = 40;  // what the system follows
  std::error_code error;
  for (int i = 0;
       i < max_links && fs::symlink_status(target, error).type() == fs::file_type::symlink; ++i) {
    target = target.parent_path() / fs::read_symlink(target, error);
  }
  return error && error != std::errc::no_such_file_or_directory ? error.value() : 0;
}

/// Looks at a regular file; nothing for a missing one. Returns 0 or an errno.
int look_at(const std::filesystem::path& path, std::optional<struct stat>& older) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    return errno == ENOENT ? 0 : errno;
  }
  if (!S_ISREG(status.st_mode)) {
    return S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
  }
  older = status;
  return 0;
}

/// Only a privileged program may give a file away; others may choose among their groups.
void keep_owner(int file, const struct stat& older) {
  constexpr auto same_owner = static_cast<uid_t>(-1);
  static_cast<void>(::fchown(file, older.st_uid, older.st_gid) == 0 ||
                    ::fchown(file, same_owner, older.st_gid) == 0);
}

/// The permissions of the older file. Whatever that was trusted to do, nobody trusted the new
/// content, so bits that lend rights are not kept. Another group gets no more than everybody has.
mode_t kept_permissions(const struct stat& older, gid_t group) {
  constexpr mode_t all = 0777;
  constexpr mode_t of_group = 070;
  const mode_t of_others = older.st_mode & 07U;
  const mode_t lost = group == older.st_gid ? 0 : of_group & ~(of_others << 3U);
  return older.st_mode & all & ~lost;
}

}  // namespace

int atomic_replacement::find(const std::string& path) {
  std::filesystem::path target(path);
  if (const int error = follow_links(target); error != 0) {
    return error;
  }
  if (const int error = look_at(target, older_); error != 0) {
    return error;
  }
  name_ = target.filename().string();
  folder_ = open_folder(target.has_parent_path() ? target.parent_path().string() : ".");
  const std::optional<struct stat> status = status_of(folder_);
  if (!status) {
    return errno;
  }
  folder_identity_ = identity_in(*status);
  return 0;
}

std::optional<file_identity> atomic_replacement::replaced() const {
  return older_ ? std::optional(identity_in(*older_)) : std::nullopt;
}

int atomic_replacement::prepare_sync() {
  synchronised_ = open_at(folder_.descriptor(), ".", O_RDONLY | O_DIRECTORY);
  return synchronised_.is_open() ? 0 : errno;
}

int atomic_replacement::create() {
  constexpr mode_t only_mine = 0600;
  file_.emplace(folder_);
  const int error = file_->create();
  if (error == 0 && older_) {
    // Where this fails, the system has no permissions to keep.
    static_cast<void>(::fchmod(descriptor(), only_mine));
  }
  return error;
}

int atomic_replacement::complete(bool sync) {
  const int file = descriptor();
  if (older_) {
    keep_owner(file, *older_);
    const std::optional<struct stat> status = status_of(file_->handle());
    if (!status || ::fchmod(file, kept_permissions(*older_, status->st_gid)) != 0) {
      return errno;
    }
    newer_ = status;
  }
  return sync ? sync_file(file) : 0;
}

std::string_view atomic_replacement::lost() const {
  const bool has_other_owner = newer_ && newer_->st_uid != older_->st_uid;
  const bool has_other_group = newer_ && newer_->st_gid != older_->st_gid;
  if (has_other_owner) {
    return has_other_group ? "owner and group" : "owner";
  }
  return has_other_group ? "group" : "";
}

int atomic_replacement::put_in_place() {
  return file_->put_in_place(name_, true);
}

int atomic_replacement::sync_folder() const {
  return sync_file(synchronised_.descriptor());
}

int report_place_error(std::string_view path, int error) {
  if (error != EINVAL) {
    return report_file_error(path, error);
  }
  print_message(joined(printable(path), ": ", no_regular_file));
  return status_failed;
}

int report_creation_error(std::string_view path, int error) {
  return report_file_error(joined(path, ": no file can be created in its folder"), error);
}

void warn_of_loss(const atomic_replacement& file, std::string_view path, const console& streams) {
  if (!file.lost().empty() && !streams.quiet) {
    print_message(
        joined(printable(path), ": does not keep the ", file.lost(), " of the older file"));
  }
}

int finish_file(atomic_replacement& file, std::string_view path, const console& streams) {
  int error = file.complete(false);
  if (error == 0) {
    error = file.put_in_place();
  }
  if (error != 0) {
    return report_file_error(path, error);
  }
  warn_of_loss(file, path, streams);
  return status_fine;
}

int write_file(atomic_replacement& file, std::string_view path, std::string_view text,
               const console& streams) {
  const blocked_signals held;
  if (const int error = file.create(); error != 0) {
    return report_creation_error(path, error);
  }
  const int error = write_checked(file.descriptor(), text);
  return error == 0 ? finish_file(file, path, streams) : report_file_error(path, error);
}

bool are_same_file(const atomic_replacement& one, const atomic_replacement& other) {
  const auto replaced = one.replaced();
  return (replaced && replaced == other.replaced()) ||
         (one.name() == other.name() && one.folder() == other.folder());
}

int sync_file(int descriptor) {
  while (::fsync(descriptor) != 0) {
    if (errno != EINTR) {
      return errno == EINVAL ? 0 : errno;  // EINVAL: the file system has nothing to synchronise
    }
  }
  return 0;
}

int sync_part(int descriptor, off_t offset, off_t count) {
  constexpr unsigned all =
      SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
  // An error that is told here is not told again by fsync.
  const bool has_failed = ::sync_file_range(descriptor, offset, count, all) != 0;
  return has_failed && (errno == EIO || errno == ENOSPC) ? errno : 0;
}

}  // namespace morvane::cli

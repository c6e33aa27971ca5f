// A file that takes the place of another one only when it is complete.
#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

#include "cli/files/temporary_file.h"
#include "cli/output/console.h"

namespace morvane::cli {

/// A new file beside the file that it replaces, if there is one. It vanishes at the end of the
/// scope if it was not put in place. The functions that return an int return 0 or an errno.
class atomic_replacement {
 public:
  /// Finds the file that a path means, after symbolic links, and opens its folder: all that follows
  /// stays there. EISDIR or EINVAL if the path is not that of a regular file.
  int find(const std::string& path);

  /// Where the file will be: its folder, and its name in it.
  [[nodiscard]] const file_identity& folder() const { return folder_identity_; }
  [[nodiscard]] const std::string& name() const { return name_; }

  /// The file that will be replaced; nothing if there is none.
  [[nodiscard]] std::optional<file_identity> replaced() const;

  /// Opens the folder, so that sync_folder cannot fail for want of a permission.
  int prepare_sync();

  /// Creates the new file. Until it is complete, nobody else may read a file that replaces one.
  int create();

  /// The new file, open to read and to write.
  [[nodiscard]] int descriptor() const { return file_->descriptor(); }

  /// Gives the new file what it keeps of the older one: the permissions, and where the system
  /// allows it the owner and the group. With sync, waits until the file is on the disk.
  int complete(bool sync);

  /// What the complete file does not keep: "owner", "group", "owner and group" or nothing.
  [[nodiscard]] std::string_view lost() const;

  /// Replaces the file.
  int put_in_place();

  /// Waits until the folder says on the disk too that the file was replaced.
  [[nodiscard]] int sync_folder() const;

 private:
  file_handle folder_{};
  file_identity folder_identity_{};
  file_handle synchronised_{};  // the same folder, open to read
  std::string name_{};
  std::optional<struct stat> older_{};
  std::optional<struct stat> newer_{};  // once the file is complete
  std::optional<temporary_file> file_{};
};

/// Prints why a path cannot be that of a new file: what find returned. Returns status_failed.
int report_place_error(std::string_view path, int error);

/// Prints that no file can be created beside the one at a path. Returns status_failed.
int report_creation_error(std::string_view path, int error);

/// Tells, unless quiet is asked for, what the file that is now at a path does not keep.
void warn_of_loss(const atomic_replacement& file, std::string_view path, const console& streams);

/// Completes a file and puts it in place, without waiting for the disk; warns of what it does not
/// keep. The path is for messages. Returns the exit status.
int finish_file(atomic_replacement& file, std::string_view path, const console& streams);

/// Writes a file whose place was found, from its first byte to its last; signals wait meanwhile.
/// The path is for messages. Returns the exit status.
int write_file(atomic_replacement& file, std::string_view path, std::string_view text,
               const console& streams);

/// Whether two paths lead to the same file, which may not exist yet.
bool are_same_file(const atomic_replacement& one, const atomic_replacement& other);

/// Waits until the content of an open file is on the disk. Returns 0 or an errno.
int sync_file(int descriptor);

/// Waits until so many bytes from an offset on are on the disk, so that sync_file has less to wait
/// for. Returns 0 or an errno; 0 also where the system cannot do that for a part of a file.
int sync_part(int descriptor, off_t offset, off_t count);

}  // namespace morvane::cli

// A file that takes the place of another one only when it is complete.
#pragma once

#include <string>
#include <string_view>

#include "io/file.h"

namespace morvane::companion {

/// A temporary file beside a path. It replaces the file at the path when it is put there, and is
/// removed otherwise: at the end of its scope, or when SIGINT, SIGTERM or SIGHUP ends the program.
/// Two may exist at a time.
class replacement_file {
 public:
  replacement_file() = default;
  replacement_file(const replacement_file&) = delete;
  replacement_file& operator=(const replacement_file&) = delete;
  ~replacement_file();

  /// Creates the temporary file and opens it to write. A symbolic link at the path is followed, so
  /// that its target is replaced. The file gets the permissions of the one that it will replace.
  /// Returns 0 or an errno; EISDIR or EINVAL when something other than a regular file has the path.
  int create(const std::string& path);

  /// The path of the temporary file.
  [[nodiscard]] const std::string& path() const { return path_; }

  /// The temporary file, open to write until somebody takes it.
  file_handle handle;

  /// Renames the temporary file to the path that it was created for. With sync, the new name is on
  /// the disk afterwards. Returns 0 or an errno.
  int put_in_place(bool sync);

 private:
  /// Leaves the file to itself.
  void forget();

  std::string path_;
  std::string target_;
};

/// Writes a small file that replaces the one at the path. Returns 0 or an errno.
int replace_file(const std::string& path, std::string_view content);

/// Writes what is in memory of an open file to the disk. Returns 0 or an errno.
int sync_file(const file_handle& file);

}  // namespace morvane::companion

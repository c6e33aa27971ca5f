// A file that takes the place of another one only when it is complete.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "companion/emerging_file.h"

namespace morvane::companion {

/// A temporary file beside the file that it replaces. It is removed at the end of the scope if it
/// was not put in place.
class replacement_file {
 public:
  /// Creates the temporary file. If the path is a symbolic link, its target will be replaced. The
  /// new file gets the permissions of the old one. Returns 0 or an errno; EISDIR or EINVAL if the
  /// path is not that of a regular file.
  int create(const std::string& path);

  /// The path of the temporary file.
  [[nodiscard]] std::string path() const;

  /// The temporary file, open to write.
  [[nodiscard]] int descriptor() const { return file_->descriptor(); }

  /// Replaces the file. With sync, waits until the change is on the disk. Returns 0 or an errno.
  int put_in_place(bool sync);

 private:
  std::string folder_path_;
  file_handle folder_;
  std::optional<emerging_file> file_;
};

/// Replaces a file by one with this content. Returns 0 or an errno.
int replace_file(const std::string& path, std::string_view content);

/// Waits until the content of an open file is on the disk. Returns 0 or an errno.
int sync_file(int descriptor);

}  // namespace morvane::companion

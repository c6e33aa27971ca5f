// A file that appears in a folder only when it is complete.
#pragma once

#include <array>
#include <atomic>
#include <optional>
#include <string>

#include "io/output_file.h"

namespace morvane::cli {

/// A name for a file that is not complete: a fixed beginning and random letters, so that no other
/// file has it. The file that has it at the end of the scope is removed.
class temporary_name {
 public:
  explicit temporary_name(int folder);
  temporary_name(const temporary_name&) = delete;
  temporary_name& operator=(const temporary_name&) = delete;
  temporary_name(temporary_name&&) = delete;
  temporary_name& operator=(temporary_name&&) = delete;
  ~temporary_name();

  [[nodiscard]] const char* text() const { return text_.data(); }

 private:
  friend void remove_temporary_files();

  int folder_;
  std::array<char, 24> text_{};
  std::atomic<temporary_name*> older_;  // the one that was made before and is still in use
};

/// Removes the files that have a temporary name now. A handler of a signal may call this.
void remove_temporary_files();

/// A file without a name until it is complete. Where the system cannot make such a file it has a
/// temporary name, and is removed at the end of the scope when it did not get its own.
class temporary_file {
 public:
  /// The folder must stay open for as long as the file lives.
  explicit temporary_file(const file_handle& folder) : folder_(folder) {}

  /// Creates the file, empty, to read and to write. Returns 0 or an errno; so below.
  int create();

  [[nodiscard]] const file_handle& handle() const { return file_; }
  [[nodiscard]] int descriptor() const { return file_.descriptor(); }

  /// Gives the file its name, without a slash. Whatever had the name is replaced, a link itself and
  /// not what it leads to; but only on request: otherwise EEXIST.
  int put_in_place(const std::string& name, bool replace);

 private:
  [[nodiscard]] int link_as(const char* name) const;

  const file_handle& folder_;
  file_handle file_{};
  std::optional<temporary_name> temporary_{};
};

}  // namespace morvane::cli

// A file that appears in a folder only when it is complete.
#pragma once

#include <string>

#include "io/output_file.h"

namespace morvane::companion {

/// A file under a temporary name, beside the name that it is to get. Removed at the end of the
/// scope when it did not get that name.
class emerging_file {
 public:
  /// The folder must stay open for as long as the file lives.
  explicit emerging_file(const file_handle& folder) : folder_(folder) {}
  emerging_file(const emerging_file&) = delete;
  emerging_file& operator=(const emerging_file&) = delete;
  emerging_file(emerging_file&&) = delete;
  emerging_file& operator=(emerging_file&&) = delete;
  ~emerging_file();

  /// Creates the file, empty, for a name without a slash. Returns 0 or an errno; so below.
  int create(const std::string& name);

  [[nodiscard]] int descriptor() const { return file_.descriptor(); }

  /// The name that the file has until it is put in place.
  [[nodiscard]] const std::string& temporary_name() const { return temporary_name_; }

  /// Gives the file its name. Whatever had the name is replaced, a link itself and not what it
  /// leads to; but only on request: otherwise EEXIST.
  int put_in_place(bool replace);

 private:
  const file_handle& folder_;
  std::string name_;
  std::string temporary_name_;  // empty when there is no temporary file
  file_handle file_;
};

}  // namespace morvane::companion

// A folder that is made for what is written into it.
#pragma once

#include <string>
#include <vector>

#include "io/output_file.h"

namespace morvane::cli {

/// Opens a folder, and makes it and those above it if they are missing. Of those that it made, it
/// removes at the end of the scope what is still empty.
class made_folder {
 public:
  explicit made_folder(const std::string& path);
  made_folder(const made_folder&) = delete;
  made_folder& operator=(const made_folder&) = delete;
  made_folder(made_folder&&) = delete;
  made_folder& operator=(made_folder&&) = delete;
  ~made_folder();

  /// Closed if the folder could not be opened or made; errno holds the reason until the next call.
  [[nodiscard]] const file_handle& handle() const { return handle_; }

 private:
  file_handle handle_;
  std::vector<std::string> made_{};  // paths, the innermost first
};

}  // namespace morvane::cli

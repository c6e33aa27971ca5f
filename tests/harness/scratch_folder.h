// A folder for one test, removed with all that is in it at the end of the test.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace morvane::test {

class scratch_folder {
 public:
  /// Makes the folder in the place for temporary files, or in another folder.
  scratch_folder() : scratch_folder(std::filesystem::temp_directory_path()) {}
  explicit scratch_folder(const std::filesystem::path& parent);
  scratch_folder(const scratch_folder&) = delete;
  scratch_folder& operator=(const scratch_folder&) = delete;
  ~scratch_folder();

  /// The folder itself.
  [[nodiscard]] const std::string& path() const { return path_; }

  /// The path of a name in the folder.
  [[nodiscard]] std::string path(std::string_view name) const;

  /// Writes a file of the folder, and makes the folders above it.
  void write(std::string_view name, std::string_view content) const;

  /// Makes a folder in the folder.
  void make_folder(std::string_view name) const;

  /// The content of a file of the folder; fails the test when there is no such file.
  [[nodiscard]] std::string read(std::string_view name) const;

  [[nodiscard]] bool exists(std::string_view name) const;

  /// Every regular file below a folder of the folder, by its path from there, with its content.
  [[nodiscard]] std::map<std::string, std::string> files(std::string_view name = ".") const;

 private:
  std::string path_;
};

}  // namespace morvane::test
